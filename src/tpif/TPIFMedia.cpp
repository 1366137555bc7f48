#include "tpif/TPIFMedia.h"

#include "records/SpecialPageKeys.h"
#include "records/StockKeys.h"
#include "settings/StockMaps.h"
#include "settings/TicketKeys.h"
#include "tpif/TPIFElement.h"
#include "tpif/TPIFWords.h"
#include "tpif/XmlEntities.h"

#include <algorithm>
#include <iterator>

namespace tarvo {
namespace {

constexpr std::size_t LongestCustomName = 30; // bytes that the front end keeps of a custom name

using TypeForm = MediaData::TypeForm;

// What a stock type becomes, and what it implies. The types beyond 10 are the printer driver's own.
struct StockTypeRow {
    std::int32_t type;
    TypeForm form;
    const char* word;    // a null name is the stock's own; the driver names 23 with ""
    bool isOrdered;      // has a count
    std::int32_t weight; // 0: the stock's own; the same for the next two
    std::int32_t holeCount;
    bool isCoatedInFront; // glossy
};

// clang-format off
constexpr StockTypeRow StockTypeRows[] = {
    {1,  TypeForm::Keyword,    "stationery",    false, 0,   0, false},
    {2,  TypeForm::Keyword,    "transparency",  false, 0,   0, false},
    {3,  TypeForm::PrePrinted, "pre-printed",   false, 0,   0, false},
    {4,  TypeForm::Keyword,    "pre-cut-tabs",  true,  0,   0, false},
    {5,  TypeForm::Keyword,    "full-cut-tabs", false, 0,   0, false},
    {6,  TypeForm::Name,       nullptr,         true,  0,   0, false},
    {7,  TypeForm::Name,       nullptr,         true,  0,   0, false},
    {8,  TypeForm::Keyword,    "envelope",      false, 0,   0, false},
    {9,  TypeForm::Keyword,    "labels",        false, 0,   0, false},
    {10, TypeForm::Recycled,   "standard",      false, 0,   0, false},
    {11, TypeForm::Keyword,    "stationery",    false, 0,   3, false},
    {12, TypeForm::Keyword,    "stationery",    false, 141, 0, false},
    {13, TypeForm::Keyword,    "bond",          false, 0,   0, false},
    {14, TypeForm::PrePrinted, "letter-head",   false, 0,   0, false},
    {15, TypeForm::Name,       "Custom1",       true,  0,   0, false},
    {16, TypeForm::Name,       "Custom2",       true,  0,   0, false},
    {17, TypeForm::Name,       "Custom3",       true,  0,   0, false},
    {18, TypeForm::Name,       "Custom4",       true,  0,   0, false},
    {19, TypeForm::Name,       "Custom5",       true,  0,   0, false},
    {20, TypeForm::Name,       "Custom6",       true,  0,   0, false},
    {21, TypeForm::Name,       "Custom7",       true,  0,   0, false},
    {22, TypeForm::Keyword,    "other",         false, 0,   0, false},
    {23, TypeForm::Name,       "",              true,  0,   0, false},
    {24, TypeForm::Keyword,    "pre-cut-tabs",  true,  0,   0, false},
    {25, TypeForm::Keyword,    "labels",        false, 219, 0, false},
    {26, TypeForm::Name,       "stationery2",   true,  141, 0, false},
    {27, TypeForm::Keyword,    "stationery",    false, 219, 0, false},
    {28, TypeForm::Name,       "stationery2",   true,  219, 0, false},
    {29, TypeForm::Keyword,    "stationery",    false, 0,   0, true},
    {30, TypeForm::Name,       "stationery2",   true,  0,   0, true},
    {31, TypeForm::Keyword,    "stationery",    false, 219, 0, true},
    {32, TypeForm::Name,       "stationery2",   true,  219, 0, true},
    {33, TypeForm::Keyword,    "pre-cut-tabs",  true,  229, 0, false},
    {35, TypeForm::Keyword,    "stationery",    false, 229, 0, false},
    {36, TypeForm::Name,       "stationery2",   true,  229, 0, false},
    {37, TypeForm::Keyword,    "stationery",    false, 229, 0, true},
    {38, TypeForm::Name,       "stationery2",   true,  229, 0, true},
    {39, TypeForm::Keyword,    "labels",        false, 229, 0, false},
};
// clang-format on

constexpr std::int32_t Glossy = 1;

std::string CustomName(std::string_view text)
{
    const std::string escaped = XMLCreateStringByEscapingEntities(text);
    return std::string(PrefixOfEscaped(escaped, LongestCustomName));
}

// A number that is there and set.
std::optional<std::int32_t> SetNumber(const CFDictionary& dictionary, std::string_view key)
{
    const auto number = dictionary.int32(key);
    return number == UnsetValue ? std::nullopt : number;
}

struct Dimensions {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

bool IsUnknown(const Dimensions& size)
{
    return size.x == 0 && size.y == 0;
}

// The size that the stock names, or brings along; 0 x 0 when it does neither.
Dimensions StockDimensions(const CFDictionary& stock)
{
    const auto size = SetNumber(stock, StockSizeKey);
    // The custom size has a row of 0 x 0 of its own: its measures are the stock's.
    if (size && *size != CustomStockSize) {
        const auto* row = RowForTicketValue(CompleteStockSizeMap, *size);
        if (row->key != nullptr) {
            return {row->width, row->length};
        }
    }
    const auto width = SetNumber(stock, StockWidthKey);
    const auto length = SetNumber(stock, StockLengthKey);
    return width && length ? Dimensions{*width, *length} : Dimensions{};
}

// The first size whose whole points are the page's; an oriented page gives its measures swapped,
// and takes the size's swapped.
Dimensions PageDimensions(const PageFormat& page)
{
    const bool isUpright = page.orientation == PageOrientation::Portrait ||
                           page.orientation == PageOrientation::ReversePortrait;
    const float width = isUpright ? page.width : page.length;
    const float length = isUpright ? page.length : page.width;
    for (const auto* row = CompleteStockSizeMap; row->key != nullptr; ++row) {
        if (row->width > 0 && static_cast<float>(row->widthPoints) == width &&
            static_cast<float>(row->lengthPoints) == length) {
            return isUpright ? Dimensions{row->width, row->length}
                             : Dimensions{row->length, row->width};
        }
    }
    return {};
}

void FillMediaSize(MediaData& media, const CFDictionary& stock, const PageFormat* pageFormat)
{
    Dimensions size = StockDimensions(stock);
    if (IsUnknown(size) && pageFormat != nullptr) {
        size = PageDimensions(*pageFormat);
    }
    media.xDimension = static_cast<std::uint32_t>(size.x);
    media.yDimension = static_cast<std::uint32_t>(size.y);
}

void FillMediaColor(MediaData& media, const CFDictionary& stock)
{
    const auto color = stock.int32(StockColorKey);
    if (!color) {
        return;
    }
    const char* keyword = WordForValue(StockColorWords, *color);
    const char* name = WordForValue(StockColorNames, *color);
    media.hasColor = keyword != nullptr || name != nullptr || *color == CustomStockColor;
    media.colorIsName = keyword == nullptr;
    if (*color == CustomStockColor) {
        media.color = CustomName(TPIFText(stock, StockCustomColorKey));
    } else if (media.hasColor) {
        media.color = keyword != nullptr ? keyword : name;
    }
}

// Null when there is none.
const StockTypeRow* RowOfType(std::optional<std::int32_t> type)
{
    const auto* row = std::find_if(std::begin(StockTypeRows), std::end(StockTypeRows),
                                   [type](const StockTypeRow& each) { return type == each.type; });
    return row == std::end(StockTypeRows) ? nullptr : row;
}

void FillMediaType(MediaData& media, const CFDictionary& stock)
{
    const auto* row = RowOfType(stock.int32(StockTypeKey));
    if (row == nullptr) {
        return;
    }
    media.typeForm = row->form;
    media.type = row->word != nullptr ? row->word : CustomName(TPIFText(stock, StockCustomTypeKey));
    if (row->isOrdered) {
        media.orderCount = stock.int32(StockModulusKey);
    }
    if (row->weight != 0) {
        media.weight = row->weight;
    }
    if (row->holeCount != 0) {
        media.holeCount = row->holeCount;
    }
    if (row->isCoatedInFront) {
        media.coatedSides = CoatedInFront;
        media.coatingType = Glossy;
    }
}

void FillMediaWeight(MediaData& media, const CFDictionary& stock)
{
    if (!media.weight) {
        media.weight = stock.int32(StockWeightKey);
    }
}

void FillMediaPunched(MediaData& media, const CFDictionary& stock)
{
    const auto punched = stock.int32(StockPunchedKey);
    if (!media.holeCount && (punched == 1 || punched == 2)) {
        media.holeCount = punched == 1 ? 0 : 3;
    }
}

void FillMediaCoating(MediaData& media, const CFDictionary& stock)
{
    if (!media.coatedSides) {
        media.coatedSides = SetNumber(stock, StockSidesCoatedKey);
        media.coatingType = stock.int32(StockCoatingTypeKey);
    }
}

void WriteMember(TPIFChannel& writeData, std::string_view name, TPIFSyntax syntax,
                 std::string_view content)
{
    WriteTPIFElement(writeData, MemberIndent, name, syntax, content);
}

// A count of -1 says that there is none, as an absent one does.
void WriteCount(TPIFChannel& writeData, std::string_view name, std::optional<std::int32_t> count)
{
    if (count && *count != -1) {
        WriteTPIFElement(writeData, MemberIndent, name, *count);
    }
}

void WriteWord(TPIFChannel& writeData, std::string_view name, const TPIFWord* words,
               std::optional<std::int32_t> value)
{
    const char* word = value ? WordForValue(words, *value) : nullptr;
    if (word != nullptr) {
        WriteMember(writeData, name, TPIFSyntax::Keyword, word);
    }
}

void WriteType(TPIFChannel& writeData, const MediaData& media)
{
    switch (media.typeForm) {
    case TypeForm::None:
        break;
    case TypeForm::Keyword:
        WriteMember(writeData, "media-type", TPIFSyntax::Keyword, media.type);
        break;
    case TypeForm::Name:
        WriteMember(writeData, "media-type", TPIFSyntax::Name, media.type);
        break;
    case TypeForm::PrePrinted:
        WriteMember(writeData, "media-pre-printed", TPIFSyntax::Keyword, media.type);
        break;
    case TypeForm::Recycled:
        WriteMember(writeData, "media-recycled", TPIFSyntax::Keyword, media.type);
        break;
    }
}

void WriteSize(TPIFChannel& writeData, const MediaData& media)
{
    if (media.xDimension == 0 || media.yDimension == 0) {
        return;
    }
    const TPIFBlock size(writeData, MemberIndent, "media-size", TPIFSyntax::Collection);
    WriteTPIFElement(writeData, MemberIndent + 1, "x-dimension", media.xDimension);
    WriteTPIFElement(writeData, MemberIndent + 1, "y-dimension", media.yDimension);
}

// A coating without a word leaves out the side that it would stand for.
void WriteCoating(TPIFChannel& writeData, const MediaData& media)
{
    if (!media.coatedSides) {
        return;
    }
    const char* word =
        media.coatingType ? WordForValue(StockCoatingWords, *media.coatingType) : nullptr;
    const std::int32_t sides = *media.coatedSides;
    const char* front = sides == CoatedNowhere || sides == CoatedInBack ? "none" : word;
    const char* back = sides == CoatedNowhere || sides == CoatedInFront ? "none" : word;
    if (front != nullptr) {
        WriteMember(writeData, "media-front-coating", TPIFSyntax::Keyword, front);
    }
    if (back != nullptr) {
        WriteMember(writeData, "media-back-coating", TPIFSyntax::Keyword, back);
    }
}

const CFDictionary& DictionaryOrEmpty(const CFDictionary& dictionary, std::string_view key)
{
    static const CFDictionary empty;
    const auto* found = dictionary.get<CFDictionary>(key);
    return found == nullptr ? empty : *found;
}

} // namespace

bool IsStockType(std::int32_t type)
{
    return RowOfType(type) != nullptr;
}

std::optional<std::int32_t> StockTypeOfName(std::string_view name)
{
    for (const StockTypeRow& row : StockTypeRows) {
        const bool impliesNothing = row.weight == 0 && !row.isCoatedInFront;
        if (row.form == TypeForm::Name && row.word != nullptr && *row.word != '\0' &&
            impliesNothing && name == row.word) {
            return row.type;
        }
    }
    return std::nullopt;
}

MediaData FillMediaData(const CFDictionary& stock, const PageFormat* pageFormat)
{
    MediaData media;
    if (stock.contains(StockCustomNameOnlyKey)) {
        if (stock.isTrue(StockCustomNameOnlyKey)) {
            media.key = EscapedTPIFText(stock, StockCustomNameKey);
        }
        return media; // known by name alone, or by nothing
    }
    FillMediaSize(media, stock, pageFormat);
    FillMediaColor(media, stock);
    FillMediaType(media, stock);
    FillMediaWeight(media, stock);
    FillMediaPunched(media, stock);
    media.description = EscapedTPIFText(stock, StockDescriptionKey);
    media.finish = stock.int32(StockFinishKey);
    media.grain = stock.int32(StockGrainKey);
    FillMediaCoating(media, stock);
    return media;
}

void WriteTPifMedia(TPIFChannel& writeData, const MediaData& media)
{
    const TPIFBlock collection(writeData, AttributeIndent, "media-col", TPIFSyntax::Collection);
    if (!media.key.empty()) {
        WriteMember(writeData, "media-key", TPIFSyntax::Name, media.key);
        return;
    }
    WriteType(writeData, media);
    WriteCount(writeData, "media-order-count", media.orderCount);
    WriteCount(writeData, "media-weight-metric", media.weight);
    if (!media.description.empty()) {
        WriteMember(writeData, "media-description", TPIFSyntax::Name, media.description);
    }
    WriteCount(writeData, "media-hole-count", media.holeCount);
    if (media.hasColor) {
        WriteMember(writeData, "media-color",
                    media.colorIsName ? TPIFSyntax::Name : TPIFSyntax::Keyword, media.color);
    }
    WriteSize(writeData, media);
    WriteCoating(writeData, media);
    WriteWord(writeData, "media-tooth", StockFinishWords, media.finish);
    WriteWord(writeData, "media-grain", StockGrainWords, media.grain);
}

void WriteTPIFPageStock(TPIFChannel& writeData, const CFDictionary& page,
                        const PageFormat* pageFormat)
{
    WriteTPifMedia(writeData, FillMediaData(DictionaryOrEmpty(page, PageStockKey), pageFormat));
}

void WriteTPIFJobLevelStock(TPIFChannel& writeData, const CFDictionary& settings,
                            const PageFormat* pageFormat)
{
    WriteTPifMedia(writeData,
                   FillMediaData(DictionaryOrEmpty(settings, JobLevelStockKey), pageFormat));
}

} // namespace tarvo
