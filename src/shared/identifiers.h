#pragma once

#include <array>
#include <string_view>

namespace quibbly {

/// What the widget is registered under, newest version first: the order in which timelines are reloaded.
inline constexpr auto widgetKinds = std::to_array<std::string_view>({
    "org.quibbly.Quibbly.RoastWidget.v6",
    "org.quibbly.Quibbly.RoastWidget.v5",
    "org.quibbly.Quibbly.RoastWidget.v4",
    "org.quibbly.Quibbly.RoastWidget.v3",
    "org.quibbly.Quibbly.RoastWidget",
});

}  // namespace quibbly
