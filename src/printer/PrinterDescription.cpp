#include "printer/PrinterDescription.h"

#include "platform/bundle/CFBundle.h"

#include <atomic>
#include <vector>

namespace tarvo {
namespace {

// Those that live, the current one last.
std::vector<const PrinterDescription*>& Living()
{
    static std::vector<const PrinterDescription*> living;
    return living;
}

std::atomic<const PrinterDescription*>& CurrentOne()
{
    static std::atomic<const PrinterDescription*> current = nullptr;
    return current;
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
    CurrentOne() = this;
}

PrinterDescription::~PrinterDescription()
{
    std::erase(Living(), this);
    CurrentOne() = Living().empty() ? nullptr : Living().back();
}

void PrinterDescription::makeCurrent() const
{
    std::erase(Living(), this);
    Living().push_back(this);
    CurrentOne() = this;
}

const PrinterDescription* PrinterDescription::Current()
{
    return CurrentOne();
}

} // namespace tarvo
