#include "platform/cf/OrderedMap.h"

#include <sys/auxv.h>

#include <array>
#include <cstring>

namespace tarvo {
namespace {

// Both halves of a 128-bit product folded together: every input bit reaches every output bit.
std::uint64_t FoldedProduct(std::uint64_t left, std::uint64_t right)
{
    __extension__ using Wide = unsigned __int128;
    const Wide product = static_cast<Wide>(left) * right;
    return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
}

// Digits of pi; any odd number with mixed bits serves.
constexpr std::uint64_t Multiplier = 0x3243F6A8885A308D;
constexpr std::uint64_t LengthMultiplier = 0x9E3779B97F4A7C15; // golden ratio

// From the random bytes that the kernel gives every process: modules that have this code each, as
// the print dialog's host and the plug-in, hand maps to one another and must hash alike.
std::uint64_t ProcessSeed()
{
    std::array<std::uint64_t, 2> words = {};
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the kernel tells the address as a number
    if (const auto* bytes = reinterpret_cast<const void*>(getauxval(AT_RANDOM)); bytes != nullptr) {
        std::memcpy(words.data(), bytes, sizeof words);
    }
    return FoldedProduct(words[0] ^ Multiplier, words[1] ^ LengthMultiplier);
}

} // namespace

std::uint64_t KeyHash(std::string_view key)
{
    static const std::uint64_t seed = ProcessSeed();
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
