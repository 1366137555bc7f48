#include "platform/text/Uuid.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>
#include <system_error>

namespace tarvo {

std::string NewUuid()
{
    // Bytes of the system's own: a generator in this process would repeat itself in a fork of it.
    std::array<unsigned char, 16> bytes{};
    if (getentropy(bytes.data(), bytes.size()) != 0) {
        throw std::system_error(errno, std::generic_category(), "no random bytes");
    }
    bytes[6] = static_cast<unsigned char>((bytes[6] & 0x0FU) | 0x40U); // version: random
    bytes[8] = static_cast<unsigned char>((bytes[8] & 0x3FU) | 0x80U); // variant: RFC 4122
    constexpr std::string_view Digits = "0123456789ABCDEF";
    std::string text;
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        if (index == 4 || index == 6 || index == 8 || index == 10) {
            text += '-';
        }
        text += Digits[bytes.at(index) >> 4U];
        text += Digits[bytes.at(index) & 0x0FU];
    }
    return text;
}

} // namespace tarvo
