#pragma once

#include <array>
#include <string_view>

#include "engine/family.h"
#include "records/system_snapshot.h"

namespace quibbly {

inline constexpr auto thermalHighLines = std::to_array<std::string_view>({
    "Thermal state: {thermal}. This is a laptop, not an induction hob.",
    "Thermal {thermal}. The fans just filed for remote work.",
    "Your Mac is exploring alternative states of matter ({thermal}).",
    "Heat check: {thermal}. Maybe close a few electron apps before it becomes a story.",
    "State: {thermal}. The chassis is considering a career in pizza ovens.",
    "{Thermal} thermals. Your lap has opinions.",
    "Fans at full autobiography. Thermal: {thermal}.",
    "Heat level {thermal}. Intel would be writing a memoir.",
    "Thermal {thermal}. Please stop rendering the entire internet.",
    "Your Mac is {thermal}. The heat sink filed a complaint.",
    "{Thermal}. Somewhere a thermal paste tube is weeping.",
    "Thermals say {thermal}. Maybe don’t export 4K while compiling.",
    "Hot enough to {thermal}. Cool enough to still judge you.",
    "Thermal alarm vibe: {thermal}. Close Zoom. Or civilization.",
    "State {thermal}. The keyboard is becoming a stovetop.",
    "Your Mac hit {thermal}. The room is now a server aisle.",
    "Fans spinning like they have stock options. Thermal: {thermal}.",
    "{Thermal} again. This is not a personality; it’s a cry for help.",
});
static_assert(thermalHighLines.size() == 18 && placeholdersAreKnown(thermalHighLines) &&
              isTypographic(thermalHighLines));

/// Heat: the machine itself says that it is too warm.
inline constexpr Family thermalHigh{.category = "thermal",
                                    .ruleId = "thermal_high",
                                    .idPrefix = "thermal_",
                                    .priority = 100,
                                    .lines = thermalHighLines,
                                    .matches = [](const SystemSnapshot& s) {
                                      return s.thermalState == RoastThermalState::serious ||
                                             s.thermalState == RoastThermalState::critical;
                                    }};

}  // namespace quibbly
