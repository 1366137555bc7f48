#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvo {

/// Where to connect to.
struct PrinterAddress {
    std::string host; // a name or an address, never a path; "" when there is none to connect to
    std::optional<std::uint16_t> port; // nullopt: the printing system's port for IPP
    bool operator==(const PrinterAddress&) const = default;
};

/// The piece of a device URI that tells the host, taken apart: "user@" goes, "%XX" is decoded,
/// brackets round an IPv6 address go. Ports of other printing protocols (515, 9100 to 9112) and
/// those that are no port at all count as absent: a request sent there would come out as paper.
/// @param authority  such as "press.local", "user@[fe80::1]:8631"
PrinterAddress AddressOfAuthority(std::string_view authority);

/// The third of the pieces that "/" separates in a device URI, which is the authority where there
/// is one.
/// @return nullopt when there are fewer pieces, and for an AppleTalk printer ("pap:", any case)
std::optional<std::string> AuthorityOfDeviceURI(std::string_view uri);

} // namespace tarvo
