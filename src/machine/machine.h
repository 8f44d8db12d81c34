#pragma once

#include <memory>

#include "monitor/system_monitor.h"
#include "platform/file_system.h"
#include "platform/preference_store.h"
#include "platform/secure_random.h"
#include "platform/shared_container.h"
#include "platform/user_calendar.h"
#include "platform/user_text.h"
#include "platform/wall_clock.h"

namespace quibbly {

/// The services of the machine that the program runs on, and the monitor that asks them. Shared by the composition
/// roots, it chooses their implementations.
class Machine {
 public:
  Machine();
  Machine(const Machine&) = delete;
  Machine& operator=(const Machine&) = delete;
  ~Machine();

  /// Made when it is first asked for: not every program samples.
  [[nodiscard]] SystemMonitor& monitor();
  [[nodiscard]] const WallClock& clock() const;
  [[nodiscard]] SecureRandom& random();
  [[nodiscard]] FileSystem& files();
  [[nodiscard]] const SharedContainer& container() const;
  [[nodiscard]] const UserText& userText() const;
  [[nodiscard]] const UserCalendar& calendar() const;
  /// The application's own.
  [[nodiscard]] PreferenceStore& preferences();
  /// Those that widgets read.
  [[nodiscard]] PreferenceStore& groupPreferences();

 private:
  struct Services;
  std::unique_ptr<Services> services_;
};

}  // namespace quibbly
