#include "stocklibrary/StockLibraryOrderList.h"

#include "stocklibrary/StockLibraryKeys.h"

#include <algorithm>
#include <string>

namespace tarvo {

void RemoveFromOrder(CFArray& order, std::string_view uuid)
{
    std::erase_if(order, [uuid](const CFPropertyList& each) {
        const auto* text = each.get<std::string>();
        return text != nullptr && *text == uuid;
    });
}

void MoveToFront(CFArray& order, std::string_view uuid)
{
    RemoveFromOrder(order, uuid);
    order.insert(order.begin(), CFPropertyList(uuid));
    if (order.size() > MaximumRecentPapers) {
        order.erase(order.begin() + MaximumRecentPapers, order.end());
    }
}

StockLibraryOrderList::StockLibraryOrderList(const PreferenceFolders& folders)
    : file_(folders, StockMenuListKey), order_(file_.read())
{
}

StockLibraryOrderList::~StockLibraryOrderList()
{
    file_.writeAtEnd(order_);
}

void StockLibraryOrderList::clearOrderList()
{
    file_.change(order_, [](CFArray& order) { order.clear(); });
}

void StockLibraryOrderList::updateOrderList(std::string_view uuid)
{
    if (!uuid.empty()) {
        file_.change(order_,
                     [uuid = std::string(uuid)](CFArray& order) { MoveToFront(order, uuid); });
    }
}

void StockLibraryOrderList::remove(std::string_view uuid)
{
    if (!uuid.empty()) {
        file_.change(order_,
                     [uuid = std::string(uuid)](CFArray& order) { RemoveFromOrder(order, uuid); });
    }
}

} // namespace tarvo
