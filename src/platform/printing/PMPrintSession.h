#pragma once

#include "platform/cf/OrderedMap.h"
#include "platform/printing/PMTicket.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

// Names of a session's tickets.
inline constexpr std::string_view JobTicketName = "PMPrintSettingsTicket";
inline constexpr std::string_view PrinterInfoTicketName = "PMPrinterInfoTicket";

// Entries of the printer information ticket, strings; whoever makes the session fills them.
inline constexpr std::string_view MakeAndModelKey =
    "com.apple.print.PrinterInfo.PMMakeAndModelName";
inline constexpr std::string_view PPDPathKey = "com.tarvo.print.PrinterInfo.PPDPath";

/// How the pages lie, numbered as the print dialog numbers it.
enum class PageOrientation : std::int32_t {
    Portrait = 0,
    Landscape = 1,
    ReversePortrait = 2,
    ReverseLandscape = 3,
};

/// The paper that the job's pages are laid out for. Width and length are those of the oriented
/// page, in points (1/72 inch): landscape A4 is 842 x 595. Who fills it from a dialog rounds to
/// whole points first, since the size table is matched exactly.
struct PageFormat {
    PageOrientation orientation = PageOrientation::Portrait;
    float width = 0;
    float length = 0;
};

/// The printer that the dialog has selected.
struct PMPrinter {
    std::string deviceUri;
    std::string ppdPath;
    std::string makeAndModel;
};

/// One opening of the print dialog: its tickets by name, the page format and the printer.
class PMPrintSession {
public:
    /// Adds an empty ticket under the name, replacing a present one.
    PMTicket& addTicket(std::string_view name)
    {
        tickets_.set(name, std::make_unique<PMTicket>());
        return **tickets_.find(name);
    }
    /// @return the ticket, owned by the session; null when there is none of that name
    PMTicket* ticket(std::string_view name) const
    {
        const auto* owner = tickets_.find(name);
        return owner == nullptr ? nullptr : owner->get();
    }

    std::optional<PageFormat> pageFormat;
    std::optional<PMPrinter> currentPrinter;

private:
    OrderedMap<std::unique_ptr<PMTicket>> tickets_;
};

} // namespace tarvo
