#include "tpif/TPIFImportMedia.h"

#include "records/StockKeys.h"
#include "settings/StockMaps.h"
#include "tpif/TPIFImportOneToOne.h"
#include "tpif/TPIFMedia.h"
#include "tpif/TPIFWords.h"

#include <iterator>

namespace tarvo {
namespace {

constexpr std::int32_t Envelope = 8;
constexpr std::int32_t EnvelopeSize = 25; // 6 x 9 in, as the postcard before it in the table
constexpr std::int32_t Uncoated = 0;      // of a side

// The first size with exactly these measures; null when there is none.
const PaperSizeSettingMap* SizeOf(std::int32_t width, std::int32_t length)
{
    for (const auto* row = CompleteStockSizeMap; row->key != nullptr; ++row) {
        if (row->width == width && row->length == length && row->value != CustomStockSize) {
            return row;
        }
    }
    return nullptr;
}

bool HasSizeOfEnvelope(const PaperSizeSettingMap& size)
{
    const auto* envelope = RowForTicketValue(CompleteStockSizeMap, EnvelopeSize);
    return size.width == envelope->width && size.length == envelope->length;
}

std::optional<std::int32_t> ColorOfName(std::string_view name)
{
    for (const TPIFWord* row = StockColorNames; row->word != nullptr; ++row) {
        if (row->word == name) {
            return row->value;
        }
    }
    return std::nullopt;
}

} // namespace

TPIFStockReader::TPIFStockReader(const TPIFImportFeatures& features)
    : weight_(features.named("StockWeight")),
      grain_(features.named("StockGrain")),
      finish_(features.named("StockFinish")),
      color_(features.named("StockColor")),
      type_(features.named("StockType")),
      prePrinted_(features.named("StockPrePrinted")),
      recycled_(features.named("StockRecycled")),
      orderCount_(features.named("StockOrderCount")),
      description_(features.named("StockDescription")),
      size_(features.named("StockSize")),
      holeCount_(features.named("StockHoleCount")),
      sidesCoated_(features.named("StockSidesCoated")),
      coating_(features.named("StockCoatingType"))
{
}

CFDictionary TPIFStockReader::read(const TPIFImportGroup& group, std::string_view key) const
{
    CFDictionary dictionary;
    if (group.isEmpty()) {
        return dictionary;
    }
    TPIFImportTarget stock(dictionary, group, key);
    readType(group, stock);
    TPIFImportFeatureOneToOne(orderCount_, group, stock, StockModulusKey);
    TPIFImportFeatureOneToOne(weight_, group, stock, StockWeightKey);
    TPIFImportFeatureOneToOne(description_, group, stock, StockDescriptionKey);
    readPunched(group, stock);
    readColor(group, stock);
    readSize(group, stock, dictionary.int32(StockTypeKey));
    readCoating(group, stock);
    TPIFImportFeatureOneToOne(finish_, group, stock, StockFinishKey);
    TPIFImportFeatureOneToOne(grain_, group, stock, StockGrainKey);
    return dictionary;
}

void TPIFStockReader::readType(const TPIFImportGroup& group, TPIFImportTarget& stock) const
{
    const auto type = type_.value(group);
    readOtherType(group, stock, type.has_value());
    if (!type) {
        return;
    }
    const TPIFImportNode* node = type_.node(group);
    if (type->kind == TPIFImportSyntax::Keyword) {
        stock.set(StockTypeKey, type->number, {node});
        return;
    }
    if (const auto named = StockTypeOfName(type->name)) {
        stock.set(StockTypeKey, *named, {node});
        return;
    }
    const bool isOrdered = orderCount_.value(group).has_value();
    stock.set(StockTypeKey, isOrdered ? OrderedStockType : CustomStockType, {node});
    if (!type->name.empty()) { // an empty one is the driver's name of a type
        stock.set(StockCustomTypeKey, type->name, {node});
    }
}

// Two elements tell a type only in place of the type itself, the first that does.
void TPIFStockReader::readOtherType(const TPIFImportGroup& group, TPIFImportTarget& stock,
                                    bool isDecided) const
{
    for (const TPIFFeatureReader* feature : {&prePrinted_, &recycled_}) {
        if (isDecided) {
            group.tellIgnored(feature->node(group), "another one decides on the type");
            continue;
        }
        const auto type = feature->number(group);
        isDecided = type && *type != 0; // 0: not pre-printed, not recycled
        if (isDecided) {
            stock.set(StockTypeKey, *type, {feature->node(group)});
        } else {
            group.tellIgnored(feature->node(group), "it is what a stock is without it");
        }
    }
}

void TPIFStockReader::readColor(const TPIFImportGroup& group, TPIFImportTarget& stock) const
{
    const auto color = color_.value(group);
    if (!color) {
        return;
    }
    const TPIFImportNode* node = color_.node(group);
    if (color->kind == TPIFImportSyntax::Keyword) {
        stock.set(StockColorKey, color->number, {node});
        return;
    }
    const auto named = ColorOfName(color->name);
    stock.set(StockColorKey, named.value_or(CustomStockColor), {node});
    if (!named && !color->name.empty()) {
        stock.set(StockCustomColorKey, color->name, {node});
    }
}

void TPIFStockReader::readPunched(const TPIFImportGroup& group, TPIFImportTarget& stock) const
{
    const auto holes = holeCount_.number(group);
    if (!holes) {
        return;
    }
    if (*holes == 1) {
        group.tell(TPIFImportOutcome::Lost, *holeCount_.node(group), "no stock has one hole");
        return;
    }
    stock.set(StockPunchedKey, *holes == 0 ? 1 : 2, {holeCount_.node(group)});
}

void TPIFStockReader::readSize(const TPIFImportGroup& group, TPIFImportTarget& stock,
                               std::optional<std::int32_t> type) const
{
    const auto width = size_.number(group, 0);
    const auto length = size_.number(group, 1);
    const TPIFImportNode* x = size_.node(group, 0);
    const TPIFImportNode* y = size_.node(group, 1);
    if (!width || !length) {
        group.tellIgnored(x, NoOtherMeasure);
        group.tellIgnored(y, NoOtherMeasure);
        return;
    }
    if (const auto* size = SizeOf(*width, *length)) {
        const bool isEnvelope = type == Envelope && HasSizeOfEnvelope(*size);
        stock.set(StockSizeKey, isEnvelope ? EnvelopeSize : size->value, {x, y});
        return;
    }
    stock.set(StockSizeKey, CustomStockSize, {});
    stock.set(StockWidthKey, *width, {x});
    stock.set(StockLengthKey, *length, {y});
}

// The side's coating, or Uncoated; nullopt when nothing is said of it.
std::optional<std::int32_t> TPIFStockReader::coatingOf(const TPIFImportGroup& group,
                                                       std::size_t side) const
{
    const auto kind = sidesCoated_.value(group, side);
    if (!kind) {
        return std::nullopt;
    }
    if (kind->keyword == StockUncoatedKeyword) {
        return Uncoated;
    }
    const auto coating = coating_.valueOf(group, sidesCoated_.node(group, side));
    return coating ? std::optional(coating->number) : std::nullopt;
}

void TPIFStockReader::readCoating(const TPIFImportGroup& group, TPIFImportTarget& stock) const
{
    const auto front = coatingOf(group, 0);
    const auto back = coatingOf(group, 1);
    const bool isFront = front && *front != Uncoated;
    const bool isBack = back && *back != Uncoated;
    const TPIFImportNode* frontNode = front ? sidesCoated_.node(group, 0) : nullptr;
    const TPIFImportNode* backNode = back ? sidesCoated_.node(group, 1) : nullptr;
    if (front == Uncoated && back == Uncoated) {
        stock.set(StockSidesCoatedKey, CoatedNowhere, {frontNode, backNode});
    } else if (isFront) {
        stock.set(StockSidesCoatedKey, isBack ? CoatedOnBothSides : CoatedInFront, {backNode});
        stock.set(StockCoatingTypeKey, *front, {frontNode});
    } else if (isBack) {
        stock.set(StockSidesCoatedKey, CoatedInBack, {frontNode});
        stock.set(StockCoatingTypeKey, *back, {backNode});
    } else {
        group.tellIgnored(frontNode, "nothing is said of the other side");
        group.tellIgnored(backNode, "nothing is said of the other side");
    }
}

} // namespace tarvo
