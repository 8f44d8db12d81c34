#pragma once

#include <filesystem>
#include <optional>
#include <utility>

#include "fakes/fixed_container.h"
#include "platform/linux/icu_user_text.h"
#include "platform/linux/kernel_random.h"
#include "platform/linux/posix_file_system.h"
#include "shared/app_group_store.h"

namespace quibbly::fakes {

/// What the programs of the group share, on real files: the container, and a publisher with a clock and preferences of the
/// test's choice.
template <typename Clock, typename Preferences>
struct Group {
  template <typename... OfPreferences>
  explicit Group(std::optional<std::filesystem::path> containerURL, OfPreferences&&... arguments)
      : container(std::move(containerURL)), preferences(std::forward<OfPreferences>(arguments)...) {}

  Clock clock;
  FixedContainer container;
  Preferences preferences;
  linux_services::PosixFileSystem files;
  linux_services::KernelRandom random;
  linux_services::IcuUserText userText;
  SharedStorage storage{container, files, random};
  AppGroupStore store{storage, preferences, clock, random, userText};
};

}  // namespace quibbly::fakes
