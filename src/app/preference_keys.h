#pragma once

/// The keys of the application's own preferences.
namespace quibbly::preference_keys {

/// Integer, 0 to 256: notifications a day.
inline constexpr const char* dailyRoastLimit = "dailyRoastLimit";
/// Integer: notifications counted on the day that the stamp names.
inline constexpr const char* roastDayCount = "roastDayCount";
/// String: a day as "2026-11-16".
inline constexpr const char* roastDayStamp = "roastDayStamp";
/// Double: the end of the pause in seconds since 1970-01-01 00:00 UTC.
inline constexpr const char* pauseRoastsUntil = "pauseRoastsUntil";
/// Integer, 0 or 1.
inline constexpr const char* hideFromDock = "hideFromDock";
/// Integer: a raw value of `RandomRoastInterval`.
inline constexpr const char* randomRoastIntervalMinutes = "randomRoastIntervalMinutes";
/// String: a raw value of `Intensity`. Nothing but the settings reads this and the two that follow.
inline constexpr const char* intensity = "intensity";
/// Integer, 0 or 1.
inline constexpr const char* allowHarshLanguage = "allowHarshLanguage";
/// Integer, 0 or 1; 1 when it is missing.
inline constexpr const char* includeAppNames = "includeAppNames";

}  // namespace quibbly::preference_keys
