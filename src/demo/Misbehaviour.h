#pragma once

#include <string>
#include <string_view>

namespace tarvo {

class Connection;

inline constexpr std::string_view OkLine = "200 OK";
inline constexpr std::string_view IppType = "application/ipp";

/// What a printer does wrong.
struct Misbehaviour {
    std::string_view name;
    std::string_view description;
    /// Deals with a client, given the answer that would be right; null when there is nothing to do
    /// because nobody can connect.
    void (*act)(const Connection& connection, std::string_view reply);
    bool beforeRequest; // acts without reading one
};

/// Everything that can be ordered; a null function stands for a port that refuses.
/// @return null for a name that is none of them
const Misbehaviour* MisbehaviourOfName(std::string_view name);

/// The names, each with its description, a line each.
std::string MisbehaviourHelp();

} // namespace tarvo
