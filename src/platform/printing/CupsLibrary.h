#pragma once

namespace tarvo {

/// A function of libcups, the printing system's library. The library is loaded when the first is
/// looked for and stays: naming it at link time would cost every start of a program some 5 ms.
/// @return null when the library or the function is missing
void* FindCupsFunction(const char* name);

/// The same into a pointer of the function's own type.
/// @return false when it is missing
template <typename Function>
bool FindCupsFunction(const char* name, Function& function)
{
    function = reinterpret_cast<Function>(FindCupsFunction(name));
    return function != nullptr;
}

/// What to tell the user whose system lacks it.
inline constexpr const char* CupsLibraryMissing =
    "the printing system's library, libcups.so.2, is missing";

} // namespace tarvo
