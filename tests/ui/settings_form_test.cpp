#include "ui/settings_form.h"

#include "app/app_test.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

class Settings : public AppTest {
 protected:
  SettingsForm form_{home_.launchApp(), home_.kept, home_.notifications, home_.group.storage};
};

TEST_F(Settings, read_what_is_stored_and_what_holds_without) {
  EXPECT_EQ(form_.intensity(), Intensity::sarcastic);
  EXPECT_FALSE(form_.allowHarshLanguage());
  EXPECT_TRUE(form_.includeAppNames());
  EXPECT_EQ(form_.randomInterval(), RandomRoastInterval::off);
  EXPECT_EQ(form_.dailyLimit(), 3);
  EXPECT_FALSE(form_.hideFromDock());
  form_.setIntensity(Intensity::savage);
  form_.setAllowHarshLanguage(true);
  form_.setIncludeAppNames(false);
  EXPECT_EQ(home_.preferences.get<std::string>(preference_keys::intensity), "savage");
  EXPECT_EQ(storedInteger(preference_keys::allowHarshLanguage), 1);
  EXPECT_EQ(storedInteger(preference_keys::includeAppNames), 0);
  store(preference_keys::intensity, std::string("furious"));
  EXPECT_EQ(form_.intensity(), Intensity::sarcastic);
}

TEST_F(Settings, bring_the_model_in_line_when_they_are_shown) {
  store(preference_keys::randomRoastIntervalMinutes, std::int64_t{7});
  store(preference_keys::dailyRoastLimit, std::int64_t{1000});
  store(preference_keys::hideFromDock, std::int64_t{1});
  model().randomRoastInterval = RandomRoastInterval::fiveMinutes;
  EXPECT_EQ(*form_.notificationStatusText, "Checking…");
  form_.appeared();
  EXPECT_EQ(*model().randomRoastInterval, RandomRoastInterval::off);
  EXPECT_EQ(storedInteger(preference_keys::randomRoastIntervalMinutes), 0);
  EXPECT_EQ(*model().dailyRoastLimit, 256);
  EXPECT_EQ(home_.desktop.policy, ActivationPolicy::accessory);
  run();
  EXPECT_EQ(
      *form_.notificationStatusText,
      "System alerts allowed — Temporary may still be suppressed while app is frontmost; desktop toast always shows.");
  EXPECT_TRUE(*form_.bannersAllowed);
  home_.center.now.alertSetting = AlertSetting::disabled;
  form_.appeared();
  run();
  EXPECT_EQ(*form_.notificationStatusText, "System Temporary/Permanent alerts limited — desktop toast still shows.");
  EXPECT_FALSE(*form_.bannersAllowed);
}

TEST_F(Settings, an_interval_begins_at_once) {
  form_.setRandomInterval(RandomRoastInterval::fiveMinutes);
  EXPECT_EQ(storedInteger(preference_keys::randomRoastIntervalMinutes), 5);
  advance(5min);
  EXPECT_EQ(roastsMade(), 1U);
}

TEST_F(Settings, never_have_less_than_nothing_left) {
  form_.setDailyLimit(2);
  for (const auto& [sent, left] : {std::pair{0, 2}, {2, 0}, {5, 0}}) {
    model().roastsSentToday = sent;
    EXPECT_EQ(form_.remainingToday(), left);
  }
}

TEST_F(Settings, a_test_looks_at_the_permission_half_a_second_later) {
  form_.sendTestNotification();
  advance(500ms - 1ns);
  EXPECT_EQ(*form_.notificationStatusText, "Checking…");
  home_.center.now.authorizationStatus = AuthorizationStatus::denied;
  advance(1ns);
  EXPECT_EQ(*form_.notificationStatusText, "Permission: not allowed");
  EXPECT_EQ(roastsMade(), 1U);
}

}  // namespace
}  // namespace quibbly
