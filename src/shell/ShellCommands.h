#pragma once

#include "settings/SettingMap.h"

#include <cstdint>

namespace tarvo {

// Commands of the pane, from the keyboard or an event.
inline constexpr std::uint32_t HelpCommand = FourCharCode("help");
inline constexpr std::uint32_t NextPanelCommand = FourCharCode("TFup");
inline constexpr std::uint32_t PreviousPanelCommand = FourCharCode("TFdn");

// Signature of the controls round the panels, and their numbers.
inline constexpr std::uint32_t ShellSignature = FourCharCode("Tshl");
inline constexpr std::int32_t PanelPopupControl = 16;
inline constexpr std::int32_t PreviousPanelControl = 1966;
inline constexpr std::int32_t NextPanelControl = 1967;
inline constexpr std::int32_t HelpControl = 1968;

} // namespace tarvo
