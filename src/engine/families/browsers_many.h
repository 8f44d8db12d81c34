#pragma once

#include <array>
#include <string_view>

#include "engine/family.h"
#include "records/system_snapshot.h"

namespace quibbly {

inline constexpr auto browsersManyLines = std::to_array<std::string_view>({
    "{browsers} browsers open. Still one internet.",
    "Browsers: {browsers}. Research, or avoidance with UI.",
    "{browsers} browsers. Your identity is distributed.",
    "Running {browsers} browsers. Pick a team.",
    "{browsers} browsers open. The web is not a buffet plate.",
    "Browser count {browsers}. Tabs have formed a union.",
    "{browsers} browsers. Cross-platform commitment issues.",
    "{browsers} browsers. Even your bookmarks are tired.",
    "Browsers open: {browsers}. The URL bar has trauma.",
    "{browsers} browsers. Please stop A/B testing your life.",
});
static_assert(browsersManyLines.size() == 10 && placeholdersAreKnown(browsersManyLines) &&
              isTypographic(browsersManyLines));

/// More than one browser. Speaks in the category of the application families.
inline constexpr Family browsersMany{.category = "apps",
                                     .ruleId = "browsers_many",
                                     .idPrefix = "br_",
                                     .priority = 55,
                                     .lines = browsersManyLines,
                                     .matches = [](const SystemSnapshot& s) { return s.browserCount > 1; }};

}  // namespace quibbly
