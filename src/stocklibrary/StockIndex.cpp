#include "stocklibrary/StockIndex.h"

#include "platform/cf/OrderedMap.h"
#include "platform/text/CaseFolding.h"
#include "records/Stock.h"

#include <array>

namespace tarvo {
namespace {

// Equal stocks have equal hashes: nothing goes in here that Stock's comparison does not look at.
std::uint64_t StockHash(const Stock& stock)
{
    const std::array numbers = {
        stock.size(),   stock.width(),       stock.length(),      stock.type(),
        stock.color(),  stock.modulus(),     stock.punched(),     stock.weight(),
        stock.finish(), stock.sidesCoated(), stock.coatingType(), stock.grain(),
    };
    std::string bytes;
    for (const std::int32_t number : numbers) {
        const char* first = reinterpret_cast<const char*>(&number);
        bytes.append(first, sizeof number);
    }
    for (const std::string* text : {&stock.customColor(), &stock.customType(), &stock.description(),
                                    &stock.customName(), &stock.comment()}) {
        bytes += CaseFolded(*text);
        bytes += '\0'; // no text holds one
    }
    return KeyHash(bytes);
}

} // namespace

void StockIndex::add(const Stock& stock, std::size_t position)
{
    positions_.try_emplace(StockHash(stock), position);
}

std::optional<std::size_t> StockIndex::firstPosition(const Stock& stock) const
{
    const auto found = positions_.find(StockHash(stock));
    return found == positions_.end() ? std::nullopt : std::optional(found->second);
}

} // namespace tarvo
