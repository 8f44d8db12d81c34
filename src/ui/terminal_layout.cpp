#include "ui/terminal_layout.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "platform/printable.h"

namespace quibbly {
namespace {

/// A wider panel is harder to read.
constexpr std::size_t widest = 72;
constexpr std::size_t toastLines = 4;

/// What goes first when there is no room, and what goes last.
enum class Keep { space, figures, limits, toast, keys, status, roast, heading };

/// As much of the text's beginning as there is room for, in whole characters.
std::string firstColumns(std::string_view text, std::size_t room, const UserText& userText) {
  std::string first;
  while (!text.empty()) {
    const std::string character = userText.firstCharacters(text, 1);
    const std::size_t columns = userText.columns(character);
    if (columns > room) break;
    first += character;
    room -= columns;
    text.remove_prefix(character.size());
  }
  return first;
}

class Layout {
 public:
  Layout(const Terminal::Size& size, const UserText& userText)
      : width_(std::min<std::size_t>(static_cast<std::size_t>(std::max(size.columns, 1)), widest)),
        height_(static_cast<std::size_t>(std::max(size.rows, 1))),
        userText_(userText) {}

  void add(Keep keep, TerminalLine line) { lines_.emplace_back(keep, std::move(line)); }
  void addText(Keep keep, TextStyle style, std::string_view text) {
    for (std::string& line : wrapped(text, width_, userText_, height_)) add(keep, {{style, std::move(line)}});
  }
  void addSpace() { add(Keep::space, {}); }
  void addRule() { add(Keep::space, {{TextStyle::dim, repeated("─", width_)}}); }

  void addToast(const BannerView& toast, bool isFading) {
    const TextStyle frame = isFading ? TextStyle::dim : TextStyle::orange;
    constexpr std::size_t frameColumns = 4;
    if (width_ <= frameColumns) return;
    const std::size_t inside = width_ - frameColumns;
    const auto addLine = [&](TextStyle style, const std::string& text) {
      const std::string rest(inside - std::min(inside, userText_.columns(text)), ' ');
      add(Keep::toast, {{frame, "│ "}, {isFading ? TextStyle::dim : style, text + rest}, {frame, " │"}});
    };
    add(Keep::toast, {{frame, "╭" + repeated("─", inside + 2) + "╮"}});
    addLine(TextStyle::bold, cut(wrapped(toast.title, inside, userText_, 2), 1, inside).front());
    for (const std::string& line : cut(wrapped(toast.message, inside, userText_, toastLines + 1), toastLines, inside)) {
      addLine(TextStyle::plain, line);
    }
    add(Keep::toast, {{frame, "╰" + repeated("─", inside + 2) + "╯"}});
  }

  void addRows(const std::vector<PanelContents::Row>& rows) {
    std::size_t labels = 0;
    for (const auto& row : rows) labels = std::max(labels, userText_.columns(row.label));
    for (const auto& row : rows) {
      const std::string gap(labels - userText_.columns(row.label) + 3, ' ');
      if (labels + 3 + userText_.columns(row.value) > width_) {
        addText(Keep::figures, TextStyle::plain, row.label + " " + row.value);
      } else {
        add(Keep::figures, {{TextStyle::dim, row.label + gap}, {TextStyle::plain, row.value}});
      }
    }
  }

  /// As many keys a line as there is room for.
  void addKeys(const std::vector<TerminalScreen::Key>& keys) {
    constexpr std::size_t between = 3;
    TerminalLine line;
    std::size_t used = 0;
    for (const auto& key : keys) {
      const std::size_t columns = userText_.columns(key.title) + 2;
      if (!line.empty() && used + between + columns > width_) add(Keep::keys, std::exchange(line, {}));
      used = line.empty() ? columns : used + between + columns;
      if (!line.empty()) line.push_back({TextStyle::plain, std::string(between, ' ')});
      line.push_back({key.isEnabled ? TextStyle::bold : TextStyle::dim, std::string(1, key.key)});
      line.push_back({key.isEnabled ? TextStyle::plain : TextStyle::dim, " " + key.title});
    }
    if (!line.empty()) add(Keep::keys, std::move(line));
  }

  [[nodiscard]] std::vector<TerminalLine> fitted() && {
    for (int least = 0; least <= static_cast<int>(Keep::heading); ++least) {
      for (std::size_t i = lines_.size(); i-- > 0 && lines_.size() > height_;) {
        if (lines_[i].first == Keep(least)) lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(i));
      }
    }
    std::vector<TerminalLine> lines;
    lines.reserve(lines_.size());
    for (auto& [keep, line] : lines_) lines.push_back(cutToWidth(std::move(line)));
    return lines;
  }

 private:
  static std::string repeated(std::string_view piece, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i) text += piece;
    return text;
  }

  /// The first lines; the last of them says that there were more.
  [[nodiscard]] std::vector<std::string> cut(std::vector<std::string> lines, std::size_t most,
                                             std::size_t columns) const {
    if (lines.size() <= most) return lines;
    lines.resize(most);
    lines.back() = std::string(firstColumns(lines.back(), columns - 1, userText_)) + "…";
    return lines;
  }

  [[nodiscard]] TerminalLine cutToWidth(TerminalLine line) const {
    std::size_t room = width_;
    for (StyledText& piece : line) {
      piece.text = firstColumns(piece.text, room, userText_);
      room -= userText_.columns(piece.text);
    }
    return line;
  }

  std::size_t width_;
  std::size_t height_;
  const UserText& userText_;
  std::vector<std::pair<Keep, TerminalLine>> lines_;
};

std::string_view sign(MenuBarLabel::Symbol symbol) {
  switch (symbol) {
    case MenuBarLabel::Symbol::flameFill:
      return "🔥";
    case MenuBarLabel::Symbol::exclamationmarkTriangleFill:
      return "▲";
    case MenuBarLabel::Symbol::flame:
      break;
  }
  return "♨";
}

void addFooter(Layout& layout, const std::vector<PanelContents::FooterLine>& footer) {
  using Role = PanelContents::FooterLine::Role;
  for (const auto& [role, text] : footer) {
    layout.addText(Keep::limits, role == Role::pause ? TextStyle::orange : TextStyle::dim, text);
  }
}

}  // namespace

std::vector<TerminalLine> terminalLines(const TerminalScreen& screen, const Terminal::Size& size,
                                        const UserText& userText) {
  Layout layout(size, userText);
  const PanelContents& panel = screen.panel;
  if (screen.toast) layout.addToast(*screen.toast, screen.toastIsFading);
  layout.add(Keep::heading,
             {{TextStyle::orange, std::string(sign(screen.symbol)) + " "}, {TextStyle::bold, panel.heading}});
  layout.addSpace();
  if (panel.rows) {
    layout.addRows(*panel.rows);
  } else {
    layout.addText(Keep::figures, TextStyle::dim, PanelContents::collecting);
  }
  if (panel.roast) {
    layout.addRule();
    layout.addText(Keep::roast, TextStyle::plain, *panel.roast);
  }
  layout.addSpace();
  addFooter(layout, panel.footer);
  if (panel.status) layout.addText(Keep::status, TextStyle::dim, *panel.status);
  if (!screen.keys.empty()) layout.addRule();
  layout.addKeys(screen.keys);
  return std::move(layout).fitted();
}

std::vector<std::string> wrapped(std::string_view text, std::size_t columns, const UserText& userText,
                                 std::size_t most) {
  const std::string safe = printable(text);
  std::vector<std::string> lines{""};
  std::string_view rest = safe;
  while (!rest.empty() && lines.size() <= most) {
    std::string_view word = rest.substr(0, rest.find(' '));
    rest.remove_prefix(std::min(word.size() + 1, rest.size()));
    const std::string longer = lines.back() + (lines.back().empty() ? "" : " ") + std::string(word);
    if (userText.columns(longer) <= columns) {
      lines.back() = longer;
      continue;
    }
    if (!lines.back().empty()) lines.emplace_back();
    // A word that no line has room for is broken anywhere; at least one character goes on each line.
    while (lines.size() <= most) {
      std::string part = firstColumns(word, columns, userText);
      if (part.empty()) part = userText.firstCharacters(word, 1);
      word.remove_prefix(part.size());
      lines.back() = std::move(part);
      if (word.empty()) break;
      lines.emplace_back();
    }
  }
  if (lines.size() > most) lines.resize(most);
  return lines;
}

}  // namespace quibbly
