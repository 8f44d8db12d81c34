#pragma once

#include <string_view>

namespace quibbly {

/// Notifications without content between the programs of a session, by name. Posting is fire-and-forget: without anybody
/// to carry it a notification is lost, so it may only hint at what is stored elsewhere. Main thread.
class CrossProcessCenter {
 public:
  using Callback = void (*)(void* observer);

  virtual ~CrossProcessCenter() = default;
  virtual void post(std::string_view name) = 0;
  /// From now on calls back with the observer for each post of the name, this program's own included. The observer must
  /// live until it is removed.
  virtual void addObserver(void* observer, Callback callback, std::string_view name) = 0;
  /// No call comes after this.
  virtual void removeObserver(void* observer, std::string_view name) = 0;
};

}  // namespace quibbly
