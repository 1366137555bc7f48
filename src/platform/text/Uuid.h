#pragma once

#include <string>

namespace tarvo {

/// A new identity that no other process or machine has: a random UUID in upper case, as in
/// "5E1F2C6A-0B7D-4C3E-9A41-D2F80B6E7C15".
std::string NewUuid();

} // namespace tarvo
