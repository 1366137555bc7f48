#include "printer/PrinterDescription.h"

#include "platform/bundle/CFBundle.h"

#include <vector>

namespace tarvo {
namespace {

// Those that live, the current one last.
std::vector<const PrinterDescription*>& Living()
{
    static std::vector<const PrinterDescription*> living;
    return living;
}

} // namespace

PrinterDescription::PrinterDescription(std::optional<PPDFile> ppd, const PMTicket* ticket,
                                       const InstalledFeatureMap* table, const CFBundle& bundle)
    : ppd_(std::move(ppd)),
      features_(bundle.propertyList(DeviceProfileName).value_or(CFDictionary()))
{
    if (ppd_) {
        if (ticket != nullptr) {
            ppd_->mark(ticket->ppdDictionary());
        }
        installable_.emplace(*ppd_, ticket, table);
        ui_.emplace(*ppd_);
    }
    Living().push_back(this);
}

PrinterDescription::~PrinterDescription()
{
    std::erase(Living(), this);
}

const PrinterDescription* PrinterDescription::Current()
{
    return Living().empty() ? nullptr : Living().back();
}

} // namespace tarvo
