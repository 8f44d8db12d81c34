#pragma once

#include "fakes/file_tree.h"
#include "fakes/fixed_container.h"
#include "platform/linux/icu_user_text.h"
#include "platform/linux/kernel_random.h"
#include "platform/linux/posix_file_system.h"
#include "platform/linux/sqlite_preference_store.h"
#include "platform/linux/system_wall_clock.h"
#include "shared/app_group_store.h"

namespace quibbly::fakes {

/// The real stores on a home directory of the test's own, laid out as the programs expect it in `data` and `config`. One
/// process, one object: a child makes its own with the parent's root.
struct PublishedHome {
  explicit PublishedHome(std::filesystem::path root) : directory(std::move(root)) {}

  std::filesystem::path directory;
  std::filesystem::path containerURL = directory / "data/group.org.quibbly";
  std::filesystem::path storeFile = directory / "config/quibbly/group.org.quibbly.db";
  FixedContainer container{containerURL};
  linux_services::PosixFileSystem files;
  linux_services::KernelRandom random;
  linux_services::SystemWallClock clock;
  linux_services::IcuUserText userText;
  linux_services::SqlitePreferenceStore preferences{storeFile};
  SharedStorage storage{container, files, random};
  AppGroupStore store{storage, preferences, clock, random, userText};

  /// Publishes texts that tell the publications apart, and differ in length by far.
  void publish(int number) {
    LastRoast roast{.text = std::to_string(number) + std::string(static_cast<std::size_t>(number) % 5 * 3000, 'x')};
    roast.templateId = std::to_string(number);
    store.publish(roast, {.batteryLevel = number, .uptimeSeconds = 0.1 * number});
  }
};

}  // namespace quibbly::fakes
