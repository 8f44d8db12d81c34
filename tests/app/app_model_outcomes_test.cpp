// What comes of a roast that somebody asks for, whoever asks and whatever stands in its way.

#include <cstdint>
#include <string>
#include <tuple>
#include <vector>

#include "app_test.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

/// The first of the lines for a machine that is too hot, and what the intent leaves to be announced.
const std::string line = "Thermal state: critical. This is a laptop, not an induction hob.";

/// An application with two roasts of three sent today.
struct Asked : TestedApplication {
  Asked() {
    home_.machine.sample.thermalState = RoastThermalState::critical;
    startPublished();
    count(2);
  }

  void count(std::int64_t sent) { store(preference_keys::roastDayCount, sent); }
  void limit(std::int64_t most) { store(preference_keys::dailyRoastLimit, most); }

  /// Each status on the way, the last one included, and in brackets what else there is to see of it.
  std::string outcome(void (*ask)(Asked&)) {
    std::string told;
    model().statusMessage = std::nullopt;
    const std::int64_t before = storedInteger(preference_keys::roastDayCount);
    const Observers::Token token = model().observe([&] {
      if (*model().statusMessage && !told.ends_with(status() + " ")) told += status() + " ";
    });
    ask(*this);
    const std::int64_t counted = storedInteger(preference_keys::roastDayCount) - before;
    EXPECT_TRUE(counted == 0 || *model().roastsSentToday == before + counted);
    EXPECT_FALSE(requestIsLeft() || home_.group.storage.readText("pendingNotify.json"));
    const std::string roast = model().lastRoast->value_or(LastRoast()).text;
    return told + "[" + (roast == line ? "new" : roast) +
           (home_.screen.messages() == std::vector{line} ? " toast" : "") +
           (announced() == std::vector{line} ? " notification" : "") + (counted > 0 ? " counted" : "") + "]";
  }
};

void panel(Asked& application) {
  application.model().roastMeNow(true, true);
  application.advance(Asked::reloads);
}
void url(Asked& application) {
  application.model().handleOpenURL("quibbly://roast");
  application.advance(Asked::reloads);
}
void schedule(Asked& application) {
  application.model().randomRoastInterval = RandomRoastInterval::oneMinute;
  application.model().restartRandomRoastLoop();
  application.advance(1min + Asked::reloads);
}
void request(Asked& application) {
  application.leaveRequest();
  application.advance(Asked::reloads);
}
void intent(Asked& application) {
  application.leaveNotification(line);
  application.run();
}

/// What comes of it for the schedule and for a request, for the panel and a URL unless those differ, and for the intent.
struct Row {
  const char* what;
  void (*happens)(Asked&);
  std::string ofSchedule, ofIntent, ofPanel = ofSchedule, ofURL = ofSchedule;
};

TEST(Roasts, come_out_alike_whoever_asks_but_for_what_each_may_do) {
  const std::string whole = "[new toast notification counted]";
  const std::string unannounced = "[new toast counted]";
  const std::string working = "Widget roast: " + line + " ";
  const std::string third = "Desktop toast + notification (3/3 today). ";
  const std::string reached = "Daily roast limit reached (3/3). []";
  const std::string zeroAtPanel = "Daily roast limit is 0 — enable a limit above 0 for notifications. []";
  const std::string silent = "Fresh roast ready. Roast updated (daily notify limit reached or limit is 0). [new]";
  const std::string until = "Paused until 17 Nov 2026, 11:00 ";
  const Row rows[] = {
      {"nothing", [](Asked&) {}, third + whole, working + third + "[Published. toast notification counted]"},
      {"the limit is reached", [](Asked& a) { a.count(3); }, reached,
       working + third + "[Published. toast notification]", reached, silent},
      {"the limit is 0", [](Asked& a) { a.limit(0); }, "Daily roast limit is 0. []",
       working + "Desktop toast + notification (2/0 today). [Published. toast notification]", zeroAtPanel, silent},
      {"the limit is below 0", [](Asked& a) { a.limit(-1); }, "Daily roast limit is 0. []",
       working + "Desktop toast + notification (2/-1 today). [Published. toast notification]", zeroAtPanel, silent},
      {"a pause", [](Asked& a) { a.model().pauseRoasts(3600); }, until + "[]", until + "[Published.]", until + "[]",
       until + "Fresh roast ready. [new]"},
      {"a pause, and a limit of 0",
       [](Asked& a) {
         a.limit(0);
         a.model().pauseRoasts(3600);
       },
       until + "[]", until + "[Published.]", until + "[]", until + "Fresh roast ready. [new]"},
      {"notifications are denied",
       [](Asked& a) { a.home_.center.now.authorizationStatus = AuthorizationStatus::denied; },
       "Desktop toast shown. System notifications denied. " + unannounced,
       working + "Notifications denied. System Settings → Notifications → quibbly. [Published. toast counted]"},
      {"banners are off", [](Asked& a) { a.home_.center.now.alertSetting = AlertSetting::disabled; },
       "Desktop toast shown. System Temporary banners may be suppressed — Permanent (Alerts) works more reliably. " +
           whole,
       working + "System Temporary banners are off or suppressed. Showing in-app desktop toast instead. For system "
                 "banners use Permanent (Alerts), or keep Temporary and rely on the toast. "
                 "[Published. toast notification counted]"},
      {"it was said before", [](Asked& a) { a.home_.recentRoasts.remember({{}, {}, line}); },
       "Roast updated (skipped duplicate system notification). " + unannounced,
       working + "Widget roast updated (duplicate system notification skipped). [Published. toast counted]"},
      {"the server refuses", [](Asked& a) { a.home_.center.refusal = "The server is out."; },
       "The server is out. " + unannounced, working + "The server is out. [Published. toast counted]"},
  };
  for (const Row& row : rows) {
    const std::tuple<const char*, void (*)(Asked&), std::string> cases[] = {{"the panel", panel, row.ofPanel},
                                                                            {"a URL", url, row.ofURL},
                                                                            {"the schedule", schedule, row.ofSchedule},
                                                                            {"a request", request, row.ofSchedule},
                                                                            {"the intent", intent, row.ofIntent}};
    for (const auto& [who, ask, expected] : cases) {
      SCOPED_TRACE(std::string(row.what) + ", asked by " + who);
      Asked application;
      row.happens(application);
      EXPECT_EQ(application.outcome(ask), expected);
    }
  }
}

}  // namespace
}  // namespace quibbly
