// Any bytes as a printer's answer: they are refused, or become stocks that a program can show, as
// many as the printing system's own reader finds.
#include "platform/text/Utf8.h"
#include "stocklibrary/PrinterMedia.h"

#include <cups/ipp.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

using namespace tarvo;

struct IppDeleter {
    void operator()(ipp_t* ipp) const { ippDelete(ipp); }
};

ssize_t TakeBytes(void* context, ipp_uchar_t* buffer, std::size_t length)
{
    auto& rest = *static_cast<std::string_view*>(context);
    const std::size_t taken = rest.copy(reinterpret_cast<char*>(buffer), length);
    rest.remove_prefix(taken);
    return static_cast<ssize_t>(taken);
}

// How many collections the library finds in the first attribute that holds any; nullopt when it
// refuses the reply, as it does for more reasons than we have.
std::optional<std::size_t> LibrarysCount(std::string_view reply)
{
    const std::unique_ptr<ipp_t, IppDeleter> ipp(ippNew());
    if (ippReadIO(&reply, TakeBytes, 1, nullptr, ipp.get()) != IPP_STATE_DATA) {
        return std::nullopt;
    }
    ipp_attribute_t* attribute = ippFirstAttribute(ipp.get());
    while (attribute != nullptr && ippGetValueTag(attribute) != IPP_TAG_BEGIN_COLLECTION) {
        attribute = ippNextAttribute(ipp.get());
    }
    return attribute == nullptr ? 0 : static_cast<std::size_t>(ippGetCount(attribute));
}

bool CanBeShown(const std::string& text)
{
    return IsUtf8(text) && std::none_of(text.begin(), text.end(),
                                        [](char letter) { return letter >= 0 && letter < ' '; });
}

bool IsShown(const ReportedMedium::Member& member)
{
    return CanBeShown(member.name) && CanBeShown(member.value);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string_view reply(reinterpret_cast<const char*>(bytes), size);
    std::string reason;
    const auto stocks = StocksOfReply(reply, reason);
    if (stocks.has_value() != reason.empty()) {
        std::abort();
    }
    if (!stocks) {
        return 0; // maybe nested too deep for the library
    }
    for (const Stock& stock : *stocks) {
        if (!CanBeShown(stock.customName()) || !CanBeShown(stock.comment())) {
            std::abort();
        }
    }
    std::size_t told = 0;
    const std::string refusal = TellPrinterMedia(reply, [&](const ReportedMedium& medium) {
        const bool isThere =
            told < stocks->size() && StockOfMedium(medium.medium) == (*stocks)[told];
        if (!isThere || !std::all_of(medium.members.begin(), medium.members.end(), IsShown)) {
            std::abort();
        }
        ++told;
    });
    if (!refusal.empty() || told != stocks->size()) {
        std::abort();
    }
    if (LibrarysCount(reply).value_or(stocks->size()) != stocks->size()) {
        std::abort();
    }
    return 0;
}
