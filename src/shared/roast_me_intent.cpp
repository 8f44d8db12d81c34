#include "shared/roast_me_intent.h"

#include <array>
#include <chrono>

#include "platform/sleep.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

constexpr auto delays = std::to_array<std::chrono::milliseconds>({0ms, 100ms, 350ms, 800ms, 1500ms});

/// What a machine of which nothing was published yet is taken to be.
WidgetSnapshot defaultFigures(Date now) {
  return {.capturedAt = now,
          .cpuUsageEstimate = 0.2,
          .memoryUtilizationEstimate = 0.55,
          .diskFreeBytes = 50'000'000'000,
          .batteryLevel = std::nullopt,
          .uptimeSeconds = 86400.0,
          .runningAppCount = 12,
          .thermalState = RoastThermalState::nominal,
          .mood = {.score = 10.0, .label = MacMood::Label::proud}};
}

}  // namespace

Task<LastRoast> RoastMeIntent::perform() {
  const RecentRoastHistory history = recentRoasts_.history();
  WidgetSnapshot figures = store_.widgetSnapshot().value_or(defaultFigures(clock_.now()));
  LastRoast roast = engine_.roast(figures.toSystemSnapshot(), figures.mood, history);
  recentRoasts_.remember(history.recording(roast.text, roast.templateId));
  figures.mood = roast.mood;
  figures.capturedAt = clock_.now();
  store_.publish(roast, figures);
  notifications_.enqueue(roastTitle, roast.text, roast.category);
  co_await hardReload();
  co_return roast;
}

Task<> RoastMeIntent::hardReload() {
  for (const auto delay : delays) {
    if (delay > 0ms) co_await sleepFor(delay);
    widgets_.timelines();
  }
}

}  // namespace quibbly
