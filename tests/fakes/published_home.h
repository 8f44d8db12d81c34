#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "fakes/file_tree.h"
#include "fakes/group.h"
#include "platform/linux/sqlite_preference_store.h"
#include "platform/linux/system_wall_clock.h"
#include "shared/widget_generation.h"

namespace quibbly::fakes {

/// The real stores on a home directory of the test's own, laid out as the programs expect it in `data` and `config`. One
/// process, one object: a child makes its own. A store that others lock is waited for as long as it takes them.
struct PublishedHome : Group<linux_services::SystemWallClock, linux_services::SqlitePreferenceStore> {
  explicit PublishedHome(const std::filesystem::path& root)
      : Group(root / "data/group.org.quibbly", root / "config/quibbly/group.org.quibbly.db", std::chrono::seconds(30)),
        directory(root) {}

  std::filesystem::path directory;
  std::filesystem::path containerURL = directory / "data/group.org.quibbly";
  std::filesystem::path storeFile = directory / "config/quibbly/group.org.quibbly.db";

  /// Publishes texts that tell the publications apart, and differ in length by far.
  void publish(int number) {
    LastRoast roast{.text = std::to_string(number) + std::string(static_cast<std::size_t>(number) % 5 * 3000, 'x')};
    roast.templateId = std::to_string(number);
    store.publish(roast, {.batteryLevel = number, .uptimeSeconds = 0.1 * number});
  }

  /// What of a publication cannot be read.
  std::vector<std::string> missing() {
    std::vector<std::string> names;
    if (!storage.read<LastRoast>("lastRoast.json")) names.emplace_back("lastRoast.json");
    if (!storage.read<WidgetSnapshot>("widgetSnapshot.json")) names.emplace_back("widgetSnapshot.json");
    if (!storage.read<WidgetGeneration>("widgetGeneration.json")) names.emplace_back("widgetGeneration.json");
    if (!storage.readText("currentRoast.txt")) names.emplace_back("currentRoast.txt");
    const auto stored = preferences.all();
    if (!stored || stored->size() != 15) names.emplace_back("the store");
    return names;
  }
};

}  // namespace quibbly::fakes
