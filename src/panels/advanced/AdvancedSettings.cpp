#include "panels/advanced/AdvancedSettings.h"

#include "settings/TicketKeys.h"

namespace tarvo {
namespace {

// Wraps round instead of overflowing, so that any number of a ticket comes back as it was.
std::int32_t Sum(std::int32_t value, std::int32_t step)
{
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value) +
                                     static_cast<std::uint32_t>(step));
}

} // namespace

OSStatus ReadAdvancedSettings(const PMTicket& ticket, AdvancedSettings& settings)
{
    settings = {};
    ticket.getNumber(BookletLayoutOrderKey, &settings.bookletLayoutOrder);
    ticket.getNumber(EmitTPIFKey, &settings.emitJobTicket);
    ticket.getNumber(QuillonEmulationKey, &settings.quillonEmulation);
    std::int32_t rotation = 0;
    const OSStatus status = ticket.getNumber(RotateImageKey, &rotation);
    settings.rotateImage = Sum(rotation, 1);
    return status;
}

void WriteAdvancedSettings(const AdvancedSettings& settings, PMTicket& ticket)
{
    ticket.setItem(PanelClient, BookletLayoutOrderKey, settings.bookletLayoutOrder);
    ticket.setItem(PanelClient, RotateImageKey, Sum(settings.rotateImage, -1));
    ticket.setItem(PanelClient, EmitTPIFKey, settings.emitJobTicket);
}

} // namespace tarvo
