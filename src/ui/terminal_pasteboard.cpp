#include "ui/terminal_pasteboard.h"

#include <string>

#include <QByteArray>

namespace quibbly {
namespace {

/// Terminals drop longer sequences (xterm's limit, before base64 makes four bytes of three).
constexpr std::size_t longest = 74'994;

}  // namespace

void TerminalPasteboard::setText(std::string_view text) {
  if (!terminal_.isInteractive() || text.size() > longest) return;
  const QByteArray encoded = QByteArray(text.data(), static_cast<qsizetype>(text.size())).toBase64();
  [[maybe_unused]] const bool written = terminal_.write("\x1b]52;c;" + encoded.toStdString() + "\x07");
}

}  // namespace quibbly
