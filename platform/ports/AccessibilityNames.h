#pragma once

#include <string_view>

/// The names of macOS accessibility that the program speaks (AXAttributeConstants.h, AXRoleConstants.h).

namespace tilwin::accessibility {

inline constexpr std::string_view enhancedUserInterface = "AXEnhancedUserInterface";
inline constexpr std::string_view focusedWindow = "AXFocusedWindow";
inline constexpr std::string_view mainWindow = "AXMainWindow";
inline constexpr std::string_view minimized = "AXMinimized";
inline constexpr std::string_view parent = "AXParent";
inline constexpr std::string_view position = "AXPosition";
inline constexpr std::string_view role = "AXRole";
inline constexpr std::string_view size = "AXSize";
inline constexpr std::string_view subrole = "AXSubrole";
inline constexpr std::string_view title = "AXTitle";
inline constexpr std::string_view windows = "AXWindows";

inline constexpr std::string_view windowRole = "AXWindow";
inline constexpr std::string_view standardWindowSubrole = "AXStandardWindow";

}  // namespace tilwin::accessibility
