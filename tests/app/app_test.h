#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/app_model_bridge.h"
#include "app/preference_keys.h"
#include "fakes/application_home.h"
#include "fakes/file_tree.h"

namespace quibbly {

/// The application on a moved clock, at first 10:00 in London, with notifications allowed.
class TestedApplication {
 public:
  explicit TestedApplication(std::unique_ptr<DirectoryWatch> watch = nullptr,
                             const std::filesystem::path& in = std::filesystem::temp_directory_path(),
                             bool withContainer = true)
      : tree_(in), home_(withContainer ? std::optional(tree_.root() / "group") : std::nullopt, std::move(watch)) {}

  /// Starts with a roast on the widgets, so that it makes none by itself.
  void startPublished() {
    home_.group.store.publish(LastRoast{.text = "Published."}, {});
    home_.launchApp().start();
    advance(reloads);
    model().lastRoast = std::nullopt;
    model().statusMessage = std::nullopt;
  }

  AppModel& model() { return *home_.app->appModel; }
  std::string status() { return model().statusMessage->value_or("no status"); }
  void advance(ContinuousClock::duration duration) { home_.queue.advance(duration); }
  void run() { home_.queue.run(); }
  template <typename Value>
  void store(const char* key, Value value) {
    ASSERT_FALSE(home_.preferences.set(key, PreferenceValue(std::move(value))));
  }
  std::int64_t storedInteger(const char* key) { return home_.preferences.get<std::int64_t>(key).value_or(-1); }
  /// How many roasts were made: the history has the last twelve.
  std::size_t roastsMade() { return home_.recentRoasts.history().texts.size(); }
  void leaveRequest() {
    ASSERT_FALSE(home_.group.storage.writeText(R"({"createdAt":"2026-11-17T10:00:00Z","source":"widget"})",
                                               "roastRequest.json"));
  }
  bool requestIsLeft() { return home_.group.storage.readText("roastRequest.json").has_value(); }
  void leaveNotification(const std::string& body) { home_.pending.enqueue("Title", body, "ram"); }
  std::vector<std::string> announced() {
    std::vector<std::string> bodies;
    for (const NotificationRequest& request : home_.center.delivered) bodies.push_back(request.body);
    return bodies;
  }

  /// As long as the reloads take that come before a notification.
  static constexpr std::chrono::milliseconds reloads{5600};

  fakes::FileTree tree_;
  fakes::ApplicationHome home_;
};

class AppTest : public ::testing::Test, protected TestedApplication {
 protected:
  using TestedApplication::TestedApplication;
};

}  // namespace quibbly
