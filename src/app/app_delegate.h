#pragma once

#include <string>
#include <vector>

#include "notify/notification_manager.h"
#include "platform/application.h"
#include "platform/main_queue.h"
#include "platform/preference_store.h"
#include "platform/task.h"

namespace quibbly {

/// What the desktop tells the program, and what the program does then. It reaches the model through `AppModelBridge`, and
/// skips what needs the model while there is none. Main thread; must outlive the queue's work.
class AppDelegate {
 public:
  AppDelegate(MainQueue& queue, PreferenceStore& defaults, Application& application, NotificationManager& notifications)
      : queue_(queue), defaults_(defaults), application_(application), notifications_(notifications) {}

  void applicationDidFinishLaunching();
  /// One of the program's windows got the keyboard.
  void applicationDidBecomeActive();
  /// The user started the program again. True: what the desktop does then by itself goes on.
  bool applicationShouldHandleReopen(bool hasVisibleWindows);
  /// URLs of the program's scheme were opened. A program that hides from the Dock shows there for two seconds.
  void open(const std::vector<std::string>& urls);

 private:
  [[nodiscard]] Task<> openOne(std::string url);
  static Task<> processPendingNotify();

  MainQueue& queue_;
  PreferenceStore& defaults_;
  Application& application_;
  NotificationManager& notifications_;
};

}  // namespace quibbly
