#pragma once

#include "fakes/file_tree.h"
#include "fakes/group.h"
#include "platform/linux/sqlite_preference_store.h"
#include "platform/linux/system_wall_clock.h"

namespace quibbly::fakes {

/// The real stores on a home directory of the test's own, laid out as the programs expect it in `data` and `config`. One
/// process, one object: a child makes its own.
struct PublishedHome : Group<linux_services::SystemWallClock, linux_services::SqlitePreferenceStore> {
  explicit PublishedHome(const std::filesystem::path& root)
      : Group(root / "data/group.org.quibbly", root / "config/quibbly/group.org.quibbly.db"), directory(root) {}

  std::filesystem::path directory;
  std::filesystem::path containerURL = directory / "data/group.org.quibbly";
  std::filesystem::path storeFile = directory / "config/quibbly/group.org.quibbly.db";

  /// Publishes texts that tell the publications apart, and differ in length by far.
  void publish(int number) {
    LastRoast roast{.text = std::to_string(number) + std::string(static_cast<std::size_t>(number) % 5 * 3000, 'x')};
    roast.templateId = std::to_string(number);
    store.publish(roast, {.batteryLevel = number, .uptimeSeconds = 0.1 * number});
  }
};

}  // namespace quibbly::fakes
