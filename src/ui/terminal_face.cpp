#include "ui/terminal_face.h"

#include <algorithm>
#include <utility>

#include "platform/printable.h"
#include "ui/terminal_layout.h"

namespace quibbly {
namespace {

constexpr std::string_view home = "\x1b[H";
constexpr std::string_view endLine = "\x1b[K";
constexpr std::string_view eraseBelow = "\x1b[J";
/// Lines of a panel that is printed rather than drawn.
constexpr int asLongAsItIs = 1000;

std::string_view sequence(TextStyle style, bool usesColours) {
  switch (style) {
    case TextStyle::bold:
      return "\x1b[1m";
    case TextStyle::dim:
      return "\x1b[2m";
    case TextStyle::orange:
      return usesColours ? "\x1b[38;5;208m" : "\x1b[1m";
    case TextStyle::plain:
      break;
  }
  return "";
}

bool isEnabled(const TerminalFace::Command& command) { return !command.isEnabled || command.isEnabled(); }

std::string plainText(const TerminalLine& line) {
  std::string text;
  for (const StyledText& piece : line) text += piece.text;
  return text;
}

std::string styledText(const TerminalLine& line, bool usesColours) {
  constexpr std::string_view reset = "\x1b[0m";
  std::string text;
  for (const auto& [style, piece] : line) {
    const std::string_view begin = sequence(style, usesColours);
    text += std::string(begin) + piece + std::string(begin.empty() ? "" : reset);
  }
  return text;
}

}  // namespace

void TerminalFace::start(std::function<void()> end, std::function<void()> failed) {
  failed_ = std::move(failed);
  const auto redraw = [this] {
    onScreen_.clear();
    changed();
  };
  ports_.toasts.onChange([this] { changed(); });
  ports_.terminal.open({.key = [this](char key) { press(key); }, .redraw = redraw, .end = std::move(end)});
  changed();
}

void TerminalFace::changed() {
  if (std::exchange(isPosted_, true)) return;
  ports_.queue.post([this] {
    isPosted_ = false;
    show();
  });
}

void TerminalFace::show() {
  const PanelState state = ports_.state();
  if (ports_.terminal.isInteractive()) {
    draw(state);
  } else {
    printNews(state);
  }
}

void TerminalFace::draw(const PanelState& state) {
  const Terminal::Size size = ports_.terminal.size();
  TerminalScreen screen{.panel = panelContents(state), .symbol = MenuBarLabel::of(state).symbol()};
  if (const auto* const toast = ports_.toasts.current()) {
    screen.toast = toast->view;
    screen.toastIsFading = toast->isFading;
  }
  if (ports_.terminal.readsKeys()) {
    for (const Command& command : commands_) screen.keys.push_back({command.key, command.title, isEnabled(command)});
  }
  std::string text(home);
  std::string_view between;
  for (const TerminalLine& line : terminalLines(screen, size, ports_.userText)) {
    text += std::string(between) + styledText(line, ports_.usesColours) + std::string(endLine);
    between = "\r\n";
  }
  text += eraseBelow;
  if (text == onScreen_) return;
  onScreen_ = text;
  write(text);
}

/// What is new since the last time, a line each; the first time, once there is a sample, the panel.
void TerminalFace::printNews(const PanelState& state) {
  if (!state.latestSnapshot) return;
  std::string text;
  const auto add = [&](const std::optional<std::string>& news) {
    if (news) text += printable(*news) + "\n";
  };
  if (!printed_) {
    const TerminalScreen screen{.panel = panelContents(state), .symbol = MenuBarLabel::of(state).symbol()};
    for (const TerminalLine& line : terminalLines(screen, {.columns = 80, .rows = asLongAsItIs}, ports_.userText)) {
      text += plainText(line) + "\n";
    }
  } else {
    if (state.lastRoast != printed_->lastRoast && state.lastRoast) add(state.lastRoast->text);
    if (state.statusMessage != printed_->statusMessage) add(state.statusMessage);
  }
  printed_ = state;
  if (!text.empty()) write(text);
}

void TerminalFace::press(char key) {
  const auto command = std::ranges::find(commands_, key, &Command::key);
  if (command != commands_.end() && isEnabled(*command)) command->run();
}

void TerminalFace::write(const std::string& text) {
  if (!ports_.terminal.write(text)) failed_();
}

}  // namespace quibbly
