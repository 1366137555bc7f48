#pragma once

#include "platform/cf/CFPropertyList.h"
#include "platform/printing/PMPrintSession.h"
#include "tpif/TPIFChannel.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

/// A medium as the document describes it. All texts are escaped.
struct MediaData {
    enum class TypeForm { None, Keyword, Name, PrePrinted, Recycled };

    std::string key; // of a medium known by name; written alone
    TypeForm typeForm = TypeForm::None;
    std::string type;                       // keyword, custom name or kind of pre-printing
    std::optional<std::int32_t> orderCount; // tabs of a set, sheets of a sequence
    std::optional<std::int32_t> weight;     // g/m2
    std::string description;
    std::optional<std::int32_t> holeCount;
    bool hasColor = false;
    bool colorIsName = false; // else a keyword
    std::string color;
    std::uint32_t xDimension = 0; // 1/100 mm; 0 is unknown
    std::uint32_t yDimension = 0;
    std::optional<std::int32_t> coatedSides;
    std::optional<std::int32_t> coatingType;
    std::optional<std::int32_t> finish;
    std::optional<std::int32_t> grain;
};

/// Whether a document can tell the stock type: one of the menus' or of the printer's own.
bool IsStockType(std::int32_t type);

/// The stock type that a document has exactly that name for and that implies nothing else; nullopt
/// for every other name.
std::optional<std::int32_t> StockTypeOfName(std::string_view name);

/// Fills the record from a stock's dictionary; what the stock's type implies wins over the stock's
/// own weight, punching and coating.
/// @param pageFormat  whose size a stock without one takes; null when there is none
MediaData FillMediaData(const CFDictionary& stock, const PageFormat* pageFormat);

/// Writes the record as a media-col element, at two tabs wherever it stands.
void WriteTPifMedia(TPIFChannel& writeData, const MediaData& media);

/// The media-col of the stock in a special page's dictionary, or of an empty stock.
void WriteTPIFPageStock(TPIFChannel& writeData, const CFDictionary& page,
                        const PageFormat* pageFormat);

/// The media-col of the job-level stock, or of an empty stock.
void WriteTPIFJobLevelStock(TPIFChannel& writeData, const CFDictionary& settings,
                            const PageFormat* pageFormat);

} // namespace tarvo
