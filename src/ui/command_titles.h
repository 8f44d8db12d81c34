#pragma once

/// What the commands are called on every face that has them.
namespace quibbly::command_titles {

inline constexpr const char* roast = "Roast me again";
inline constexpr const char* roastAndNotify = "Roast + notify";
inline constexpr const char* copyRoast = "Copy roast";
inline constexpr const char* pauseForAnHour = "Pause for 1 hour";
inline constexpr const char* pauseUntilTomorrow = "Pause until tomorrow";
inline constexpr const char* resume = "Resume now";
inline constexpr const char* quit = "Quit quibbly";

}  // namespace quibbly::command_titles
