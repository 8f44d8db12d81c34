#pragma once

#include <limits>

namespace quibbly::fakes {

/// Which calls of a service fail, counted from 1 and from the moment that says so; none, at first. Wrappers around services
/// count their calls here, and those of several services also in common.
class Faults {
 public:
  explicit Faults(const Faults* common = nullptr) : common_(common) {}

  void failNone() { failCalls(0, 0); }
  void failCall(int number) { failCalls(number, number); }
  void failFrom(int number) { failCalls(number, std::numeric_limits<int>::max()); }
  [[nodiscard]] int calls() const { return calls_; }

 protected:
  /// Whether the call that is made just now fails.
  [[nodiscard]] bool fails() const {
    ++calls_;
    const bool failsInCommon = common_ != nullptr && common_->fails();
    return failsInCommon || (first_ <= calls_ && calls_ <= last_);
  }

 private:
  void failCalls(int first, int last) {
    calls_ = 0;
    first_ = first;
    last_ = last;
  }

  const Faults* common_;
  mutable int calls_ = 0;
  int first_ = 0;
  int last_ = 0;
};

}  // namespace quibbly::fakes
