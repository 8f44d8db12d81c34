#pragma once

#include <QFont>

namespace quibbly {

/// What a text is for; sizes are relative to the system's font.
enum class FontRole { title2, title3, headline, body, callout, subheadline, caption, caption2 };

/// The one table of text styles.
[[nodiscard]] QFont fontOf(FontRole role);
/// The body font in the system's fixed width.
[[nodiscard]] QFont monospacedBody();

}  // namespace quibbly
