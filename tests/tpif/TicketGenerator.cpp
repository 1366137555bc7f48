#include "TicketGenerator.h"

#include "records/BackgroundFormsKeys.h"
#include "records/FullColorKeys.h"
#include "records/HighlightColorKeys.h"
#include "records/ImageShiftKeys.h"
#include "records/JobTypeKeys.h"
#include "records/SpecialPageKeys.h"
#include "records/StockKeys.h"
#include "settings/TicketKeys.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <sstream>
#include <string>
#include <vector>

namespace tarvo {
namespace {

using Numbers = std::vector<std::int32_t>;

// Numbers of a ticket and what comes back: "4" itself, "2>3" another, "1>none" nothing, as it is
// not written, "28>lost" nothing, though it is, "9>unset" unset, "32>default" unset, which is not
// written again.
using NumberRows = const char*;

constexpr NumberRows OneAndTwo = "1 2 0>none unset>none";
constexpr NumberRows OneAndThree = "1 3 0>none";
constexpr NumberRows OneAndFive = "1 5 0>none";
constexpr NumberRows Levels = "-100 0 100 -101>lost 101>lost";
constexpr NumberRows Renderings = "1 5 6 7>none unset>none";
constexpr NumberRows RgbProfiles = "1 4 5>none 6";
constexpr NumberRows CmykProfiles = "1 2 3>none 4 15";
constexpr NumberRows TrapWidths = "0 20 21>lost";

struct NumberEntry {
    std::string_view key;
    NumberRows rows;
};

// clang-format off
constexpr NumberEntry JobEntries[] = {
    {OutputDestinationKey, "1 2>3 3 4 5>lost 6>lost 7>none 8>lost 9>lost"},
    {HalftoneScreenKey, "1>16 2>17 3>30 5>31 4 14 27 28>lost 32>default 33>lost 47>lost 48>none unset>none"},
    {OPISubstitutionKey, "1>none 2 3 9>none unset>none"}, {OutputOrderKey, "1>none 2 3 4 5 6>none"},
    {OutputColorKey, OneAndTwo},   {SlipSheetKey, "2 1>none"},          {LightenDarkenKey, Levels},
    {AntialiasingKey, OneAndTwo},  {RotateImageKey, OneAndTwo},         {OPIPrescanKey, "1>none 2 4"},
    {ResolutionKey, "1 4 9>unset"}, {QuillonEmulationKey, "2 3 4>none"},
};
constexpr NumberEntry ColorEntries[] = {
    {FullColorLightnessKey, Levels},        {FullColorContrastKey, Levels},
    {FullColorSaturationKey, Levels},       {FullColorBlackOverprintKey, OneAndTwo},
    {RGBImagesProfileKey, RgbProfiles},     {RGBTextAndGraphicsProfileKey, RgbProfiles},
    {CMYKImagesProfileKey, CmykProfiles},   {CMYKTextAndGraphicsProfileKey, CmykProfiles},
    {DestinationProfileKey, "1 2>none"},    {ImageRenderingKey, Renderings},
    {TextRenderingKey, Renderings},         {GraphicRenderingKey, Renderings},
};
constexpr NumberEntry CastEntries[] = {
    {FullColorCyanRedKey, Levels}, {FullColorMagentaGreenKey, Levels}, {FullColorYellowBlueKey, Levels},
};
constexpr NumberEntry HighlightEntries[] = {
    {HighlightPrintingColorKey, OneAndFive},    {HighlightMappingColorKey, "1 13 0>none"},
    {HighlightMappingAlgorithmKey, OneAndFive}, {HighlightMismatchActionKey, OneAndThree},
};
constexpr NumberEntry PageEntries[] = {
    {SidesImagedKey, OneAndThree},     {PageLightenDarkenKey, Levels},
    {PageAntialiasingKey, OneAndTwo},  {PageOutputColorKey, OneAndTwo},
};
// clang-format on

std::int32_t NumberOf(const std::string& word)
{
    return word == "unset" || word == "default" ? UnsetValue : std::stoi(word);
}

std::vector<std::string> WordsOf(NumberRows rows)
{
    std::istringstream text(rows);
    return {std::istream_iterator<std::string>(text), {}};
}

// A random number that every machine draws alike, unlike those of the standard's distributions.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed * 0x9E3779B97F4A7C15ULL + 1) {}

    std::uint32_t below(std::size_t bound)
    {
        state_ ^= state_ >> 12;
        state_ ^= state_ << 25;
        state_ ^= state_ >> 27;
        return static_cast<std::uint32_t>((state_ * 0x2545F4914F6CDD1DULL >> 33) % bound);
    }
    bool once(std::size_t times) { return below(times) == 0; }
    std::int32_t from(std::int32_t first, std::int32_t last)
    {
        return first + static_cast<std::int32_t>(below(static_cast<std::size_t>(last - first + 1)));
    }
    template <typename Range>
    const auto& oneOf(const Range& range)
    {
        return *(std::begin(range) + below(std::size(range)));
    }

private:
    std::uint64_t state_;
};

// A dictionary of the ticket and the one that comes back.
struct Pair {
    CFDictionary ticket;
    CFDictionary expected;
    bool isLossy = false;

    void both(std::string_view key, const CFPropertyList& value)
    {
        ticket.set(key, value);
        expected.set(key, value);
    }
    void number(Random& random, std::string_view key, NumberRows rows)
    {
        const std::string word = random.oneOf(WordsOf(rows));
        const std::string back = word.substr(word.find('>') + 1); // all of it without a '>'
        ticket.set(key, NumberOf(word.substr(0, word.find('>'))));
        isLossy = isLossy || back == "lost" || back == "default";
        if (back != "none" && back != "lost") {
            expected.set(key, NumberOf(back));
        }
    }
    void some(Random& random, std::span<const NumberEntry> entries)
    {
        for (const NumberEntry& entry : entries) {
            if (random.once(3)) {
                number(random, entry.key, entry.rows);
            }
        }
    }
};

std::string AnyText(Random& random, std::size_t longest)
{
    // clang-format off
    static constexpr std::string_view Pieces[] = {
        "a",  "Z",  " ",  "&",  "<",   ">",        "\"",          "'",                "]]>", "&amp;",
        "\n", "\t", "  ", "-1", "%ld", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "..",  "/"};
    // clang-format on
    std::string text = "t";
    for (std::size_t count = random.below(longest); count > 0; --count) {
        text += random.oneOf(Pieces);
    }
    return text;
}

// A name that stays below the writer's 30 bytes with all its entities.
std::string ShortName(Random& random)
{
    return AnyText(random, 4);
}

class TicketMaker {
public:
    explicit TicketMaker(std::uint64_t seed) : random_(seed) {}

    GeneratedTicket make();

private:
    Pair stock();
    void stockType(Pair& stock);
    void stockColor(Pair& stock);
    void stockSize(Pair& stock);
    void stockCoating(Pair& stock, bool isImplied);
    void shift(Pair& page, std::string_view key);
    void color(Pair& job, std::string_view key);
    void highlight();
    void covers();
    void inserts();
    void exceptions();
    void jobType();
    void forms();
    void finishing();
    void wildFinishing();
    void offset();
    void notes();
    void simple();
    void put(Pair& pair, std::string_view key, Pair value, bool evenEmpty)
    {
        pair.isLossy = pair.isLossy || value.isLossy;
        pair.ticket.set(key, std::move(value.ticket));
        if (evenEmpty || !value.expected.empty()) {
            pair.expected.set(key, std::move(value.expected));
        }
    }

    Random random_;
    Pair job_;
    std::optional<PageFormat> page_;
    bool isWild_ = false;
    bool isLossyWithoutForm_ = false; // but for the job of a form, which shows in nothing else
};

void TicketMaker::stockType(Pair& stock)
{
    // Type, what comes back, and what the type implies.
    struct Row {
        std::int32_t type;
        std::int32_t expected; // 0: none
        std::int32_t weight;
        bool isPunched;
        bool isCoated;
        bool isOrdered;
        const char* customType;
    };
    // clang-format off
    static constexpr Row Rows[] = {
        {1,  1,       0,   false, false, false, nullptr},
        {2,  2,       0,   false, false, false, nullptr},
        {4,  4,       0,   false, false, true,  nullptr},
        {8,  8,       0,   false, false, false, nullptr},
        {10, 10,      0,   false, false, false, nullptr},
        {11, 1,       0,   true,  false, false, nullptr},
        {12, 1,       141, false, false, false, nullptr},
        {15, 15,      0,   false, false, true,  nullptr},
        {21, 21,      0,   false, false, true,  nullptr},
        {23, 7,       0,   false, false, true,  nullptr},
        {24, 4,       0,   false, false, true,  nullptr},
        {25, 9,       219, false, false, false, nullptr},
        {26, 7,       141, false, false, true,  "stationery2"},
        {31, 1,       219, false, true,  false, nullptr},
        {32, 7,       219, false, true,  true,  "stationery2"},
        {33, 4,       229, false, false, true,  nullptr},
        {39, 9,       229, false, false, false, nullptr},
        {0,  0,       0,   false, false, false, nullptr},
        {40, 0,       0,   false, false, false, nullptr},
    };
    // clang-format on
    const Row& row = random_.oneOf(Rows);
    stock.ticket.set(StockTypeKey, row.type);
    if (row.expected != 0) {
        stock.expected.set(StockTypeKey, row.expected);
    }
    if (row.customType != nullptr) {
        stock.expected.set(StockCustomTypeKey, row.customType);
    }
    if (random_.once(3)) {
        const std::int32_t modulus = random_.from(0, 9);
        stock.ticket.set(StockModulusKey, modulus);
        if (row.isOrdered) {
            stock.expected.set(StockModulusKey, modulus);
            if (row.expected == 7) {
                stock.expected.set(StockTypeKey, 6);
            }
        }
    }
    if (row.weight != 0) {
        stock.expected.set(StockWeightKey, row.weight);
    }
    if (row.isPunched) {
        stock.expected.set(StockPunchedKey, 2);
    }
    if (row.isCoated) {
        stock.expected.set(StockSidesCoatedKey, 2);
        stock.expected.set(StockCoatingTypeKey, 1);
    }
}

void TicketMaker::stockColor(Pair& stock)
{
    const std::int32_t color = random_.from(0, 22);
    stock.ticket.set(StockColorKey, color);
    if (color == 10 && random_.once(2)) {
        stock.both(StockCustomColorKey, ShortName(random_));
    }
    if (color >= 1 && color <= 21) {
        stock.expected.set(StockColorKey, color);
    }
}

void TicketMaker::stockSize(Pair& stock)
{
    static const Numbers Sizes = {1, 4, 5, 20, 55, 62, 70, 72};
    constexpr std::int32_t Envelope = 8;
    const std::uint32_t kind = random_.below(6);
    if (kind == 0) {
        stock.ticket.set(StockSizeKey, CustomStockSize);
        stock.ticket.set(StockWidthKey, 21000);
        stock.ticket.set(StockLengthKey, 29700);
        stock.expected.set(StockSizeKey, 4); // the size that it is
    } else if (kind == 1) {
        stock.both(StockSizeKey, CustomStockSize);
        stock.both(StockWidthKey, random_.from(1, 99999));
        stock.both(StockLengthKey, random_.from(1, 99999));
    } else if (kind == 2) {
        stock.ticket.set(StockSizeKey, 25);
        const bool isEnvelope = stock.expected.int32(StockTypeKey) == Envelope;
        stock.expected.set(StockSizeKey, isEnvelope ? 25 : 62);
    } else if (kind == 3 && stock.expected.int32(StockTypeKey) != Envelope) {
        stock.both(StockSizeKey, random_.oneOf(Sizes));
    } else if (page_ && page_->width == 595) {
        stock.expected.set(StockSizeKey, 4);
    } else if (page_ && page_->width == 842) {
        stock.expected.set(StockSizeKey, CustomStockSize);
        stock.expected.set(StockWidthKey, 29700);
        stock.expected.set(StockLengthKey, 21000);
    }
}

void TicketMaker::stockCoating(Pair& stock, bool isImplied)
{
    const std::int32_t sides = random_.from(1, 5);
    const std::int32_t type = random_.from(1, 6);
    stock.ticket.set(StockSidesCoatedKey, sides);
    stock.ticket.set(StockCoatingTypeKey, type);
    if (isImplied) {
        return;
    }
    if (sides != 1 && type == 6) { // without a word "none" stands alone, which says nothing
        stock.isLossy = stock.isLossy || sides == 2 || sides == 4;
        return;
    }
    stock.expected.set(StockSidesCoatedKey, sides == 5 ? 3 : sides);
    if (sides != 1) {
        stock.expected.set(StockCoatingTypeKey, type);
    }
}

Pair TicketMaker::stock()
{
    Pair stock;
    if (random_.once(12)) {
        stock.ticket.set(StockCustomNameOnlyKey, random_.once(2));
        stock.ticket.set(StockCustomNameKey, AnyText(random_, 9));
        stock.isLossy = page_ || stock.ticket.isTrue(StockCustomNameOnlyKey);
        return stock;
    }
    if (random_.once(6)) { // a custom type
        const bool isOrdered = random_.once(2);
        stock.both(StockTypeKey, isOrdered ? 6 : 7);
        stock.both(StockCustomTypeKey, ShortName(random_));
        if (isOrdered) {
            stock.both(StockModulusKey, random_.from(0, 32767));
        }
    } else if (!random_.once(5)) {
        stockType(stock);
    }
    stockSize(stock);
    if (random_.once(2)) {
        stockColor(stock);
    }
    const bool hasWeight = stock.expected.contains(StockWeightKey);
    if (random_.once(2)) {
        const std::int32_t weight = random_.from(1, 999);
        stock.ticket.set(StockWeightKey, weight);
        stock.expected.insert(StockWeightKey, weight);
    } else if (!hasWeight && random_.once(3)) {
        stock.ticket.set(StockWeightKey, 1000);
        stock.isLossy = true;
    }
    if (random_.once(3)) {
        const std::int32_t punched = random_.from(1, 3);
        stock.ticket.set(StockPunchedKey, punched);
        if (punched != 3) {
            stock.expected.insert(StockPunchedKey, punched);
        }
    }
    if (random_.once(3)) {
        stock.both(StockDescriptionKey, AnyText(random_, 60));
    }
    if (random_.once(3)) {
        stockCoating(stock, stock.expected.contains(StockSidesCoatedKey));
    }
    static constexpr NumberEntry Entries[] = {
        {StockFinishKey, OneAndThree},
        {StockGrainKey,  OneAndTwo  }
    };
    stock.some(random_, Entries);
    return stock;
}

void TicketMaker::shift(Pair& page, std::string_view key)
{
    Pair shift;
    const bool isFull = random_.once(2);
    const bool isInches = random_.once(3);
    for (const auto offset : {ShiftX1Key, ShiftY1Key, ShiftX2Key, ShiftY2Key}) {
        const std::int32_t value = random_.from(-3000, 3000);
        shift.ticket.set(offset, value);
        shift.expected.set(offset, isFull     ? value
                                   : isInches ? static_cast<std::int32_t>(value * 25.4)
                                              : value * 10);
    }
    shift.ticket.set(ShiftTwoSidedModeKey, random_.from(1, 10));
    shift.ticket.set(ShiftInchesKey, isInches ? 1 : 0);
    if (isFull) {
        shift.ticket.set(ShiftFullPrecisionKey, true);
    }
    shift.expected.set(ShiftTwoSidedModeKey, 1);
    shift.expected.set(ShiftInchesKey, 0);
    shift.expected.set(ShiftFullPrecisionKey, true);
    put(page, key, std::move(shift), true);
}

void TicketMaker::color(Pair& job, std::string_view key)
{
    Pair color;
    color.some(random_, ColorEntries);
    if (random_.once(3)) {
        Pair cast;
        cast.some(random_, CastEntries);
        put(color, FullColorCastKey, std::move(cast), false);
    }
    if (random_.once(3)) {
        static constexpr NumberEntry Widths[] = {
            {FullColorTrappingFastKey, TrapWidths},
            {FullColorTrappingSlowKey, TrapWidths}
        };
        color.number(random_, FullColorTrappingKey, OneAndTwo);
        color.some(random_, Widths);
        if (color.expected.contains(FullColorTrappingFastKey) ||
            color.expected.contains(FullColorTrappingSlowKey)) {
            color.expected.insert(FullColorTrappingKey, UnsetValue);
        }
    }
    for (const auto profile :
         {FullColorTRCKey, RGBImagesProfileKey, CMYKTextAndGraphicsProfileKey, GrayImagesProfileKey,
          GrayTextAndGraphicsProfileKey, DestinationProfileKey}) {
        if (random_.once(5)) {
            color.both(profile, AnyText(random_, 40));
        }
    }
    put(job, key, std::move(color), false);
}

void TicketMaker::highlight()
{
    Pair options;
    options.some(random_, HighlightEntries);
    options.isLossy = options.expected.int32(HighlightMappingColorKey) == 13; // the colour itself
    put(job_, HighlightColorOptionsKey, std::move(options), false);
}

void TicketMaker::covers()
{
    const bool hasFront = random_.once(2);
    const std::int32_t front = random_.from(0, 5);
    const auto cover = [this](std::string_view key, std::int32_t sides, std::int32_t expected) {
        Pair pages;
        pages.ticket.set(SidesImagedKey, sides);
        pages.ticket.set(StartPageKey, 0);
        put(pages, PageStockKey, stock(), true);
        pages.expected.set(SidesImagedKey, expected);
        pages.expected.set(StartPageKey, 0);
        const bool isCover = sides >= 1 && sides <= 4;
        job_.isLossy = job_.isLossy || pages.isLossy || !isCover;
        job_.ticket.set(key, std::move(pages.ticket));
        if (isCover) {
            job_.expected.set(key, std::move(pages.expected));
        }
    };
    if (hasFront) {
        cover(FrontCoverKey, front, front);
    }
    if (random_.once(2)) {
        const std::int32_t back = random_.from(0, 5);
        const bool isPrintedOnBack = back == 2 || back == 3;
        cover(BackCoverKey, back, isPrintedOnBack ? (hasFront && front == 3 ? 3 : 2) : back);
    }
}

void TicketMaker::inserts()
{
    CFArray list;
    CFArray expected;
    for (std::int32_t count = random_.from(1, 3); count > 0; --count) {
        Pair insert;
        const std::int32_t page = random_.from(-1, 30);
        insert.both(StartPageKey, page);
        insert.both(InsertQuantityKey, random_.from(0, 3));
        put(insert, PageStockKey, stock(), true);
        job_.isLossy = job_.isLossy || insert.isLossy || page < 0;
        list.emplace_back(std::move(insert.ticket));
        if (page >= 0) {
            expected.emplace_back(std::move(insert.expected));
        }
    }
    job_.ticket.set(InsertListKey, std::move(list));
    if (!expected.empty()) {
        job_.expected.set(InsertListKey, std::move(expected));
    }
}

void TicketMaker::exceptions()
{
    CFArray list;
    CFArray expected;
    for (std::int32_t count = random_.from(1, 3); count > 0; --count) {
        Pair page;
        const std::int32_t first = random_.from(0, 30);
        const std::int32_t last = random_.from(1, 40);
        page.both(StartPageKey, first);
        page.both(EndPageKey, last);
        put(page, PageStockKey, stock(), true);
        page.some(random_, PageEntries);
        if (random_.once(3)) {
            shift(page, PageImageShiftKey);
        }
        if (random_.once(3)) {
            color(page, PageFullColorKey);
        }
        const bool isRange = first >= 1 && first <= last;
        job_.isLossy = job_.isLossy || page.isLossy || !isRange;
        list.emplace_back(std::move(page.ticket));
        if (isRange) {
            expected.emplace_back(std::move(page.expected));
        }
    }
    job_.ticket.set(ExceptionListKey, std::move(list));
    if (!expected.empty()) {
        job_.expected.set(ExceptionListKey, std::move(expected));
    }
}

void TicketMaker::jobType()
{
    constexpr std::int32_t Formats = 6; // one more than there are
    Pair type;
    const std::int32_t number = random_.from(1, 9);
    const bool isSaved = number == 3 || number == 4;
    type.ticket.set(JobTypeNumberKey, number);
    type.expected.set(JobTypeNumberKey, number);
    if (random_.once(2)) {
        const std::string name = AnyText(random_, 20);
        type.ticket.set(SavedJobNameKey, name);
        if (isSaved) {
            type.expected.set(SavedJobNameKey, name);
        }
    }
    const bool hasLocation = random_.once(2);
    const std::string location = hasLocation ? "file:///a%20b/&" : DefaultSavedJobLocation.data();
    if (hasLocation) {
        type.ticket.set(SavedJobLocationKey, location);
    }
    const std::int32_t format = random_.from(0, Formats);
    if (format != 0) {
        type.ticket.set(SaveFormatKey, format);
    }
    if (isSaved) {
        type.expected.set(SavedJobLocationKey, location);
        job_.isLossy = job_.isLossy || format == Formats; // no format comes back as the first
        if (format != Formats) {
            type.expected.set(SaveFormatKey, std::max(format, 1));
        }
    }
    job_.ticket.set(JobTypeKey, std::move(type.ticket));
    isLossyWithoutForm_ = job_.isLossy;
    job_.isLossy = job_.isLossy || number == 9;
    if (isSaved || number == 2) {
        job_.expected.set(JobTypeKey, std::move(type.expected));
    }
}

void TicketMaker::forms()
{
    Pair forms;
    const bool isNew = random_.once(2);
    const bool isMerged = random_.once(2);
    if (isNew) {
        forms.both(NewFormStringKey, AnyText(random_, 20));
    }
    if (isMerged) {
        forms.both(MergeWithStringKey, AnyText(random_, 20));
    }
    const std::int32_t cycle = random_.from(0, 99);
    const std::int32_t shift = random_.from(-99, 99);
    forms.ticket.set(CyclePagesKey, cycle);
    forms.ticket.set(ShiftX1Key, shift);
    forms.ticket.set(ShiftInchesKey, 0);
    forms.expected.set(UseExistingFormKey, isMerged ? 2 : 1);
    forms.expected.set(CyclePagesKey, isMerged ? cycle : 0);
    forms.expected.set(ShiftX1Key, isMerged ? shift * 10 : 0);
    forms.expected.set(ShiftY1Key, 0);
    forms.expected.set(ShiftInchesKey, 0);
    forms.expected.set(ShiftFullPrecisionKey, true);
    job_.ticket.set(BackgroundFormsOptionsKey, std::move(forms.ticket));
    if (isNew || isMerged) {
        job_.expected.set(BackgroundFormsOptionsKey, std::move(forms.expected));
    }
    const auto* type = job_.ticket.get<CFDictionary>(JobTypeKey);
    if (isNew && type != nullptr && type->int32(JobTypeNumberKey) == 9) {
        job_.isLossy = isLossyWithoutForm_;
        CFDictionary form;
        form.set(JobTypeNumberKey, 9);
        job_.expected.set(JobTypeKey, std::move(form));
    }
}

struct Part {
    std::string_view key;
    Numbers choices;
};

constexpr std::string_view PartKeys[] = {Staple1ValueKey, Staple2ValueKey, StapleCenterValueKey,
                                         FoldValueKey,    BindValueKey,    HolePunchValueKey,
                                         ZFoldValueKey};

// A family with the parts that it uses, and only those.
void TicketMaker::finishing()
{
    struct Row {
        std::int32_t family;
        std::vector<Part> parts;
    };
    // clang-format off
    static const Part Staple1 = {Staple1ValueKey, {5, 6, 7, 8}};
    static const Part Staple2 = {Staple2ValueKey, {10, 11, 12, 13}};
    static const Part StapleCenter = {StapleCenterValueKey, {26, 27, 28, 29}};
    static const Part Punch = {HolePunchValueKey, {32, 33, 34, 35}};
    static const Part AnyPunch = {HolePunchValueKey, {32, 33, 34, 35, 49}};
    static const Part ZFold = {ZFoldValueKey, {38, 39}};
    static const Row Rows[] = {
        {1,  {}},
        {3,  {}},
        {4,  {Staple1}},
        {9,  {Staple2}},
        {25, {StapleCenter}},
        {14, {{BindValueKey, {15, 16}}}},
        {18, {{FoldValueKey, {19, 20}}}},
        {24, {{BookletFoldStapleKey, {7, 8}}}},
        {30, {Punch}},
        {36, {ZFold}},
        {40, {{FoldValueKey, {41, 42, 46, 48}}}},
        {49, {Staple2, AnyPunch}},
        {50, {Staple1, AnyPunch, ZFold}},
        {51, {StapleCenter, ZFold}},
        {52, {ZFold, AnyPunch}},
    };
    // clang-format on
    const Row& row = random_.oneOf(Rows);
    for (const auto key : PartKeys) {
        job_.expected.set(key, 0);
    }
    for (const Part& part : row.parts) {
        job_.both(part.key, random_.oneOf(part.choices));
    }
    job_.both(FinishingOptionsKey, row.family);
    const bool isPunched = job_.ticket.contains(HolePunchValueKey);
    job_.expected.set(HolePunchOptionsKey, 4);
    if (isPunched && random_.once(2)) {
        const std::int32_t holes = random_.from(2, 5); // 2 is no number of holes
        job_.ticket.set(HolePunchOptionsKey, holes);
        job_.expected.set(HolePunchOptionsKey, holes == 2 ? 0 : holes);
    }
}

void TicketMaker::wildFinishing()
{
    static const Numbers Families = {0,  1,  2,  3,  4,  9,  14, 18, 22, 24, 25,
                                     30, 32, 33, 36, 40, 49, 50, 51, 52, 53};
    isWild_ = true;
    const std::int32_t family = random_.oneOf(Families);
    job_.isLossy = job_.isLossy || family == 22; // a template has no way back
    job_.ticket.set(FinishingOptionsKey, family);
    job_.ticket.set(CustomFinishingKey, AnyText(random_, 9));
    // clang-format off
    static const Part Parts[] = {
        {Staple1ValueKey,      {0, 5, 6, 7, 8, 9, 10, 26}},
        {Staple2ValueKey,      {0, 5, 10, 11, 12, 13}},
        {StapleCenterValueKey, {0, 26, 27, 28, 29}},
        {HolePunchValueKey,    {0, 1, 32, 33, 34, 35, 49}},
        {HolePunchOptionsKey,  {0, 3, 4, 5}},
        {ZFoldValueKey,        {0, 37, 38, 39}},
        {FoldValueKey,         {19, 20, 41, 42, 43, 44, 45, 46, 47, 48}},
        {BindValueKey,         {0, 15, 16}},
        {BookletFoldStapleKey, {0, 6, 7, 8}},
    };
    // clang-format on
    for (const Part& part : Parts) {
        if (random_.once(2)) {
            job_.ticket.set(part.key, random_.oneOf(part.choices));
        }
    }
}

void TicketMaker::offset()
{
    const std::int32_t offset = random_.from(1, 6);
    job_.ticket.set(OffsetKey, offset);
    if (offset >= 2 && offset <= 5) {
        job_.expected.set(OffsetKey, offset);
    }
    if (random_.once(2)) {
        job_.both(OffsetEnableSubsetKey, 1);
        job_.both(OffsetPagesPerSubsetKey, random_.from(0, 999999));
        job_.expected.insert(OffsetKey, 1);
    }
}

void TicketMaker::notes()
{
    if (random_.once(2)) {
        job_.both(JobNotesJobNameKey, AnyText(random_, 300));
        job_.both(JobNotesSenderNameKey, AnyText(random_, 20));
    }
    for (const auto key : {JobNotesMessageKey, JobNotesRecipientKey, JobNotesSheetMessageKey}) {
        if (random_.once(3)) {
            job_.both(key, AnyText(random_, 60));
        }
    }
}

void TicketMaker::simple()
{
    const std::int32_t duplex = random_.from(0, 4);
    job_.ticket.set(DuplexKey, duplex);
    job_.expected.set(DuplexKey, duplex == 2 || duplex == 3 ? duplex : 1);
    job_.some(random_, JobEntries);
    if (random_.once(4)) {
        job_.ticket.set(TonerSaverKey, random_.once(2));
        job_.isLossy = true;
    }
}

GeneratedTicket TicketMaker::make()
{
    CFDictionary all;
    all.set(ExportAllKey, true);
    job_.ticket.set(ExportOptionsKey, std::move(all));
    if (random_.once(3)) {
        static constexpr PageFormat Pages[] = {
            {PageOrientation::Portrait,  595, 842},
            {PageOrientation::Landscape, 842, 595},
            {PageOrientation::Portrait,  100, 100}
        };
        page_ = random_.oneOf(Pages);
    }
    Pair jobStock = stock();
    put(job_, JobLevelStockKey, std::move(jobStock), false);
    notes();
    simple();
    using Step = void (TicketMaker::*)();
    for (const Step step : {&TicketMaker::highlight, &TicketMaker::covers, &TicketMaker::inserts,
                            &TicketMaker::exceptions, &TicketMaker::jobType, &TicketMaker::forms,
                            &TicketMaker::offset}) {
        if (random_.once(3)) {
            (this->*step)();
        }
    }
    if (random_.once(2)) {
        color(job_, FullColorOptionsKey);
    }
    if (random_.once(2)) {
        shift(job_, JobImageShiftKey);
    }
    switch (random_.below(3)) {
    case 0:
        finishing();
        break;
    case 1:
        wildFinishing();
        break;
    default:
        break;
    }
    return {std::move(job_.ticket), page_, std::move(job_.expected), job_.isLossy, isWild_};
}

} // namespace

GeneratedTicket GenerateTicket(std::uint64_t seed)
{
    GeneratedTicket generated = TicketMaker(seed).make();
    for (std::uint64_t other = 1; seed % 2 == 0 && generated.isLossy; ++other) {
        generated = TicketMaker(seed + (other << 40)).make();
    }
    return generated;
}

bool IsFinishingKey(std::string_view key)
{
    static constexpr std::string_view Others[] = {FinishingOptionsKey, HolePunchOptionsKey,
                                                  BookletFoldStapleKey};
    return std::find(std::begin(PartKeys), std::end(PartKeys), key) != std::end(PartKeys) ||
           std::find(std::begin(Others), std::end(Others), key) != std::end(Others);
}

} // namespace tarvo
