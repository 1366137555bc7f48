#pragma once

#include "records/Stock.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvo {

/// A medium as a printer reports it: the members of one value of "media-col-database", by their
/// names there. What is absent or of another kind has no value here.
struct PrinterMedium {
    std::optional<std::string> key;         // media-key, the name of a paper
    std::optional<std::string> description; // media-description
    std::optional<std::string> color;
    std::optional<std::string> type;
    std::optional<std::string> prePrinted;
    std::optional<std::string> recycled;
    std::optional<std::string> frontCoating;
    std::optional<std::string> backCoating;
    std::optional<std::string> info;        // media-info, a comment
    std::optional<std::int32_t> holeCount;  // media-hole-count
    std::optional<std::int32_t> orderCount; // tabs of a set, sheets of a sequence
    std::optional<std::int32_t> weight;     // media-weight-metric, in g/m2
    std::optional<std::int32_t> width;      // x-dimension, in 1/100 mm
    std::optional<std::int32_t> length;     // y-dimension, in 1/100 mm
};

/// The stocks of a printer's answer to MediaRequest, in its order; none when it holds no
/// collections.
/// @return nullopt, with the reason, when the answer is refused: it is malformed, answers another
/// request, or holds more than 50,000 media or 12 MiB of texts
std::optional<std::vector<Stock>> StocksOfReply(std::string_view reply, std::string& reason);

/// A medium with everything that the printer tells of it.
struct ReportedMedium {
    struct Member {
        std::string name;  // "media-color"; "media-size.x-dimension" within another
        std::string value; // for people
        bool isKept; // in the medium; not for a name that it lacks, another kind, a second one
    };
    std::vector<Member> members;    // in the printer's order, the first of them
    std::size_t furtherMembers = 0; // how many there are beyond
    PrinterMedium medium;
};

/// Tells the media of the same answer one by one, so that they need not all be in memory.
/// @return why the reply is refused, some media told or none; "" when they all were
std::string TellPrinterMedia(std::string_view reply,
                             const std::function<void(ReportedMedium)>& take);

/// The request for a printer's media.
/// @param uri  the printer's
std::string MediaRequest(std::string_view uri);

/// The medium as a stock. What the printer does not tell stays unset, except that the sides coated
/// are unset only together with the coating.
Stock StockOfMedium(PrinterMedium medium);

/// The colour of a name, in any case; 10, a custom colour, for any other text.
std::int32_t convertTPIFColorToIndex(std::string_view color);

/// The type of a name, in any case. A medium without a known one is told by what is printed on it,
/// by what it is made of, or by the count of its sheets.
/// @return 7, a custom type, when nothing else tells it
std::int32_t convertTPIFTypeToIndex(std::string_view type,
                                    const std::optional<std::string>& prePrinted,
                                    const std::optional<std::string>& recycled,
                                    const std::optional<std::int32_t>& orderCount);

/// The coating of a name, in any case; UnsetValue for any other text.
std::int32_t convertTPIFCoatingTypeToIndex(std::string_view coating);

/// How many sides are coated (1 none, 2 one, 3 both) and with what; the front's coating counts when
/// both are. Leaves the two as they were when that is not told.
void convertTPIFSidesCoatedAndCoatingType(const std::optional<std::string>& front,
                                          const std::optional<std::string>& back,
                                          std::int32_t& sidesCoated, std::int32_t& coatingType);

} // namespace tarvo
