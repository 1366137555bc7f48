#pragma once

namespace tarvo {

class CFBundle;

inline constexpr const char* BundleIdentifier = "com.tarvo.print.pde.tarvofeatures.ql900.hlc";

/// The bundle that this module was loaded from, in the languages of the user.
/// @return null when the module is in no bundle, or in one of another identifier
const CFBundle* FindBundle();

} // namespace tarvo
