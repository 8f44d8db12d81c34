#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "notify/banner_screen.h"
#include "platform/terminal.h"
#include "platform/user_text.h"
#include "ui/menu_bar_label.h"
#include "ui/panel_contents.h"

namespace quibbly {

/// How a piece of text looks on a terminal.
enum class TextStyle { plain, bold, dim, orange };

struct StyledText {
  TextStyle style = TextStyle::plain;
  std::string text;

  bool operator==(const StyledText&) const = default;
};

using TerminalLine = std::vector<StyledText>;

/// All that is on the terminal.
struct TerminalScreen {
  struct Key {
    char key;
    std::string title;
    bool isEnabled;
  };

  PanelContents panel;
  MenuBarLabel::Symbol symbol = MenuBarLabel::Symbol::flame;
  /// Absent when none is shown.
  std::optional<BannerView> toast;
  bool toastIsFading = false;
  std::vector<Key> keys;
};

/// The screen as lines, none wider or more than there is room for. What does not fit is left out, least important first:
/// space, then figures, limits, the toast, keys, the status, and the end of the roast. Control characters become spaces.
[[nodiscard]] std::vector<TerminalLine> terminalLines(const TerminalScreen& screen, const Terminal::Size& size,
                                                      const UserText& userText);

/// A text as lines of at most so many columns, broken between words where that can be; the first of them when there would
/// be more than `most`, so that a text of any length takes no longer than what is shown of it.
[[nodiscard]] std::vector<std::string> wrapped(std::string_view text, std::size_t columns, const UserText& userText,
                                               std::size_t most = std::numeric_limits<std::size_t>::max());

}  // namespace quibbly
