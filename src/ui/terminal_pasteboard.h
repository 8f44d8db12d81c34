#pragma once

#include "platform/pasteboard.h"
#include "platform/terminal.h"

namespace quibbly {

/// Copies through the terminal (xterm's OSC 52), which also over ssh reaches the pasteboard of the desktop that the user sits
/// at. A terminal that does not know how, or does not want to, copies nothing, as one does that is none.
class TerminalPasteboard final : public Pasteboard {
 public:
  explicit TerminalPasteboard(Terminal& terminal) : terminal_(terminal) {}

  void clear() override {}
  void setText(std::string_view text) override;

 private:
  Terminal& terminal_;
};

}  // namespace quibbly
