#pragma once

#include "platform/files/Descriptor.h"

#include <string>
#include <string_view>

namespace tarvo {

// What the printing system's reader is given, looked at before.

/// Opens a regular file.
/// @return invalid, with the reason, when it is none
Descriptor OpenPPD(const std::string& path, std::string& reason);

/// The contents as a file without a name.
/// @return invalid, with the reason, when there is no memory for it
Descriptor PPDInMemory(std::string_view contents, std::string& reason);

/// Why the reader had better not read the file, which would take it long or much memory.
/// @param file  at its beginning, before and after
/// @return empty when it may read it
std::string RefusalOfPPD(const Descriptor& file);

} // namespace tarvo
