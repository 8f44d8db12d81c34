#include "ui/terminal_layout.h"

#include <algorithm>
#include <ranges>
#include <string>

#include "fuzz/fuzzer.h"
#include "platform/linux/icu_user_text.h"

namespace quibbly::fuzz {
namespace {

const linux_services::IcuUserText userText;

void tryWrapped(std::string_view text, std::size_t columns) {
  constexpr int most = 3;
  const auto lines = wrapped(text, columns, userText);
  for (const std::string& line : lines) {
    // A line that one character is too wide for has it all the same.
    demand(userText.columns(line) <= columns || userText.firstCharacters(line, 1) == line,
           "a line has so many columns");
  }
  const auto firstLines = lines | std::views::take(most);
  demand(std::ranges::equal(wrapped(text, columns, userText, most), firstLines), "the first lines are those of all");
}

void tryScreen(const TerminalScreen& screen, const Terminal::Size& size) {
  const auto lines = terminalLines(screen, size, userText);
  demand(lines.size() <= static_cast<std::size_t>(std::max(size.rows, 1)), "no more lines than there is room for");
  for (const TerminalLine& line : lines) {
    std::string text;
    for (const StyledText& piece : line) text += piece.text;
    demand(userText.columns(text) <= static_cast<std::size_t>(std::max(size.columns, 1)), "no line is too wide");
    demand(std::ranges::none_of(text, [](char c) { return c >= 0 && c < ' '; }), "nothing steers the terminal");
  }
}

}  // namespace

/// Two bytes for the size, and then what other programs and files have to say. All text is UTF-8 before it comes here.
void tryInput(std::string_view input) {
  if (input.size() < 2 || !userText.isUtf8(input)) return;
  const Terminal::Size size{.columns = input[0], .rows = input[1]};
  const auto parts = partsOf(input.substr(2), 4);
  TerminalScreen screen{.panel = {.heading = "Mac Mood: Proud", .roast = std::string(parts[0])},
                        .keys = {{'r', "Roast me again", true}, {'q', "Quit quibbly", false}}};
  screen.panel.rows = {{"CPU estimate", "~0%"}, {"Thermal", "nominal"}};
  if (!parts[1].empty()) screen.panel.status = parts[1];
  if (!parts[2].empty()) screen.toast = BannerView{.title = std::string(parts[2]), .message = std::string(parts[3])};
  tryScreen(screen, size);
  tryWrapped(parts[0], static_cast<std::size_t>(std::max(size.columns, 1)));
}

}  // namespace quibbly::fuzz
