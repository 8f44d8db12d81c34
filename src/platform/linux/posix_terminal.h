#pragma once

#include <optional>
#include <string_view>
#include <termios.h>
#include <unistd.h>

#include "platform/linux/file_descriptor.h"
#include "platform/linux/signal_watch.h"
#include "platform/main_queue.h"
#include "platform/terminal.h"

namespace quibbly::linux_services {

/// A terminal by termios and the control sequences that all of today's understand (ECMA-48, and xterm's alternate screen).
/// `endingSignals` and `terminalSignals` have to be held back; without a terminal it lets the latter through.
class PosixTerminal final : public Terminal {
 public:
  /// The kind is that of the output, if that is a terminal, as TERM has it.
  PosixTerminal(MainQueue& queue, std::string_view kind, int input = STDIN_FILENO, int output = STDOUT_FILENO);
  PosixTerminal(const PosixTerminal&) = delete;
  PosixTerminal& operator=(const PosixTerminal&) = delete;
  ~PosixTerminal() override;

  [[nodiscard]] bool isInteractive() const override { return isInteractive_; }
  [[nodiscard]] bool readsKeys() const override { return readsKeys_; }
  [[nodiscard]] Size size() const override;
  void open(Events events) override;
  void close() override;
  [[nodiscard]] bool write(std::string_view text) override;

 private:
  /// Where in the input the next byte is.
  enum class Place { key, afterEscape, inSequence };

  void takeOver();
  void giveBack();
  void take(int signal);
  void readKeys();
  void readKey(char byte);
  void suspend();
  void drawLater();

  MainQueue& queue_;
  int input_;
  FileDescriptor output_;
  bool isInteractive_;
  bool readsKeys_;
  Events events_;
  std::optional<SignalWatch> signals_;
  std::optional<termios> before_;  // the terminal's settings, while it is taken
  std::optional<MainQueue::TimerId> drawing_;
  Place place_ = Place::key;
  bool hasFailed_ = false;
};

}  // namespace quibbly::linux_services
