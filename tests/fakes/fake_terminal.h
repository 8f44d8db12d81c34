#pragma once

#include <string>
#include <utility>

#include "platform/terminal.h"

namespace quibbly::fakes {

/// A terminal that keeps what was written since the test last looked.
class FakeTerminal : public Terminal {
 public:
  explicit FakeTerminal(bool interactive) : interactive_(interactive) {}

  Events events;
  Size room{.columns = 60, .rows = 20};
  bool fails = false;

  std::string takeWritten() { return std::exchange(written_, {}); }

  [[nodiscard]] bool isInteractive() const override { return interactive_; }
  [[nodiscard]] bool readsKeys() const override { return interactive_; }
  [[nodiscard]] Size size() const override { return room; }
  void open(Events told) override { events = std::move(told); }
  void close() override {}
  [[nodiscard]] bool write(std::string_view text) override {
    written_ += text;
    return !fails;
  }

 private:
  bool interactive_;
  std::string written_;
};

}  // namespace quibbly::fakes
