#include "platform/cf/OrderedMap.h"

#include <cstring>
#include <random>

namespace tarvo {
namespace {

std::uint64_t DrawSeed()
{
    std::random_device device;
    return (static_cast<std::uint64_t>(device()) << 32) | device();
}

// Both halves of a 128-bit product folded together: every input bit reaches every output bit.
std::uint64_t FoldedProduct(std::uint64_t left, std::uint64_t right)
{
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(left) * right;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

} // namespace

std::uint64_t KeyHash(std::string_view key)
{
    static const std::uint64_t seed = DrawSeed();
    // Digits of pi; any odd number with mixed bits serves.
    constexpr std::uint64_t Multiplier = 0x3243F6A8885A308D;
    constexpr std::uint64_t LengthMultiplier = 0x9E3779B97F4A7C15; // golden ratio
    std::uint64_t hash = seed ^ (key.size() * LengthMultiplier);
    while (!key.empty()) {
        std::uint64_t word = 0;
        const std::size_t taken = std::min(key.size(), sizeof word);
        std::memcpy(&word, key.data(), taken);
        hash = FoldedProduct(hash ^ word, Multiplier ^ seed);
        key.remove_prefix(taken);
    }
    return FoldedProduct(hash, LengthMultiplier);
}

} // namespace tarvo
