// Any property list as the user's library: whatever is in it, the operations keep their promises,
// and what they leave can be written and read again.
#include "platform/cf/PropertyListReader.h"
#include "platform/cf/PropertyListWriter.h"
#include "stocklibrary/StockLibraryKeys.h"
#include "stocklibrary/StockLibraryList.h"
#include "stocklibrary/StockLibraryOrderList.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace tarvo {
namespace {

void Expect(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

std::vector<std::string> UuidsOf(const CFDictionary& list)
{
    std::vector<std::string> uuids;
    for (const auto& each : list) {
        if (each.value.get<CFDictionary>() != nullptr) {
            uuids.push_back(each.key);
        }
    }
    return uuids;
}

// The first paper equal to the one of that uuid, by comparing them all.
std::string FirstMatch(const StockLibraryList& list, const Stock& stock)
{
    for (const std::string& uuid : UuidsOf(list.stockList())) {
        if (list.entry(uuid)->stock() == stock) {
            return uuid;
        }
    }
    return "";
}

void CheckPaper(StockLibraryList& list, const std::string& uuid)
{
    const StockLibrary paper = *list.entry(uuid);
    Expect(*list.findMatch(paper.stock()) == FirstMatch(list, paper.stock()));
    Expect(list.isDuplicate(paper.stock().customName()) == !paper.stock().customName().empty());
    list.setInUse(uuid);
    Expect(list.entry(uuid)->stock() == paper.stock());
    StockLibrary copy = paper;
    Expect(list.entry(list.add(copy)).has_value());
    list.replace(paper);
}

void CheckOrder(CFArray order)
{
    MoveToFront(order, "A");
    Expect(*order.front().get<std::string>() == "A" && order.size() <= MaximumRecentPapers);
    RemoveFromOrder(order, "A");
    Expect(std::find(order.begin(), order.end(), CFPropertyList("A")) == order.end());
}

} // namespace
} // namespace tarvo

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tarvo;
    ParseError error;
    auto root = ReadPropertyListDictionary({reinterpret_cast<const char*>(bytes), size}, error);
    if (!root) {
        return 0;
    }
    if (const auto* order = root->get<CFArray>(StockMenuListKey)) {
        CheckOrder(*order);
    }
    const auto* papers = root->get<CFDictionary>(StockListKey);
    StockLibraryList list(papers == nullptr ? CFDictionary() : *papers);
    std::vector<std::string> uuids = UuidsOf(list.stockList());
    uuids.resize(std::min<std::size_t>(uuids.size(), 20)); // each is compared with all
    for (const std::string& uuid : uuids) {
        CheckPaper(list, uuid);
    }
    list.clearStatus();
    for (const std::string& uuid : UuidsOf(list.stockList())) {
        Expect(list.entry(uuid)->status() != static_cast<std::int32_t>(StockEntryStatus::InUse));
    }
    const auto xml = WritePropertyList(list.stockList(), error);
    Expect(xml && ReadPropertyListDictionary(*xml, error));
    return 0;
}
