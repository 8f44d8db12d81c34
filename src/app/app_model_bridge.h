#pragma once

#include <memory>

#include "platform/task.h"

namespace quibbly {

class AppModel;

/// How code that is handed no model reaches it. Main thread.
class AppModelBridge {
 public:
  /// The live model; absent when there is none.
  static inline std::weak_ptr<AppModel> shared;

  /// Has the model start, and deal with what widgets left in the mailboxes.
  static void processPendingRoastFromWidget();

 private:
  static Task<> process(std::shared_ptr<AppModel> model);
};

}  // namespace quibbly
