#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace quibbly::fakes {

/// Waits, in real time, until something holds that another process or thread brings about; false when it never does.
inline bool until(const std::function<bool()>& holds) {
  for (const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
       std::chrono::steady_clock::now() < end;) {
    if (holds()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return false;
}

}  // namespace quibbly::fakes
