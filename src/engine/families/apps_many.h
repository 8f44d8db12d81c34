#pragma once

#include <array>
#include <string_view>

#include "engine/family.h"
#include "records/system_snapshot.h"

namespace quibbly {

inline constexpr auto appsManyLines = std::to_array<std::string_view>({
    "{apps} apps running. Multitasking or just open tabs for your life?",
    "{apps} apps. Your Dock is a support group.",
    "App count: {apps}. Somewhere, a window is important. Probably.",
    "{apps} apps open. Focus mode left the chat.",
    "{apps} apps. Your Mac is hosting a conference.",
    "Running {apps} apps. Minimalism called. It declined.",
    "{apps} apps. The Cmd-Tab switcher needs a map.",
    "App total: {apps}. This is not productivity. This is inventory.",
    "{apps} apps open. Your menu bar is a skyline.",
    "{apps} processes of ‘I’ll need this later’.",
    "{apps} apps. Mission Control is a crime scene.",
    "Running {apps}. Even the wallpaper wants out.",
    "{apps} apps. Your Mac is speedrunning context switching.",
    "App count {apps}. Bold for one human.",
    "{apps} open. Closure is a myth.",
    "{apps} apps. The Dock has trust issues.",
    "{apps} running. Somewhere a single-purpose machine is laughing.",
    "{apps} apps. Please pick a main character.",
});
static_assert(appsManyLines.size() == 18 && placeholdersAreKnown(appsManyLines) && isTypographic(appsManyLines));

/// A crowd of applications.
inline constexpr Family appsMany{.category = "apps",
                                 .ruleId = "apps_many",
                                 .idPrefix = "apps_",
                                 .priority = 65,
                                 .lines = appsManyLines,
                                 .matches = [](const SystemSnapshot& s) { return s.runningAppCount > 19; }};

}  // namespace quibbly
