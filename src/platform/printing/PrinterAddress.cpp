#include "platform/printing/PrinterAddress.h"

#include "platform/text/CaseFolding.h"

#include <algorithm>
#include <charconv>

namespace tarvo {
namespace {

constexpr std::size_t None = std::string_view::npos;

std::optional<std::uint16_t> PortForIPP(std::string_view digits)
{
    std::uint16_t port = 0;
    const char* end = digits.data() + digits.size();
    const auto [behind, error] = std::from_chars(digits.data(), end, port);
    const bool isLPD = port == 515;
    const bool isRaw = port >= 9100 && port <= 9112;
    if (error != std::errc() || behind != end || port == 0 || isLPD || isRaw) {
        return std::nullopt;
    }
    return port;
}

// "%41" is "A"; what only looks like a code stays.
std::string Decoded(std::string_view text)
{
    std::string decoded;
    for (std::size_t at = 0; at < text.size(); ++at) {
        unsigned char code = 0;
        if (text[at] == '%' && at + 2 < text.size()) {
            const char* digits = text.data() + at + 1;
            if (std::from_chars(digits, digits + 2, code, 16).ptr == digits + 2) {
                decoded += static_cast<char>(code);
                at += 2;
                continue;
            }
        }
        decoded += text[at];
    }
    return decoded;
}

// A path would be taken for a socket of this machine, and nothing else of these is in a name.
bool IsHost(std::string_view text)
{
    return std::none_of(text.begin(), text.end(), [](char letter) {
        const auto code = static_cast<unsigned char>(letter);
        return code <= ' ' || code == 0x7F || letter == '/';
    });
}

bool AreDigits(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char letter) { return letter >= '0' && letter <= '9'; });
}

} // namespace

PrinterAddress AddressOfAuthority(std::string_view authority)
{
    PrinterAddress address;
    authority = authority.substr(0, authority.find_first_of("?#")); // of an address without a path
    if (const std::size_t user = authority.rfind('@'); user != None) {
        authority.remove_prefix(user + 1);
    }
    std::string_view host = authority;
    const std::size_t bracket = authority.starts_with('[') ? authority.find(']') : None;
    const std::size_t colon = authority.find(':', bracket == None ? 0 : bracket);
    // More than one colon outside of brackets is an IPv6 address that lacks them.
    if (colon != None && authority.rfind(':') == colon && AreDigits(authority.substr(colon + 1))) {
        address.port = PortForIPP(authority.substr(colon + 1));
        host = authority.substr(0, colon);
    }
    if (bracket != None) {
        host = authority.substr(1, bracket - 1);
    }
    address.host = Decoded(host);
    if (!IsHost(address.host)) {
        address.host.clear();
    }
    return address;
}

std::optional<std::string> AuthorityOfDeviceURI(std::string_view uri)
{
    const std::size_t first = uri.find('/');
    const std::size_t second = first == None ? None : uri.find('/', first + 1);
    if (second == None || EqualIgnoringCase(uri.substr(0, first), "pap:")) {
        return std::nullopt;
    }
    const std::string_view rest = uri.substr(second + 1);
    return std::string(rest.substr(0, rest.find('/')));
}

} // namespace tarvo
