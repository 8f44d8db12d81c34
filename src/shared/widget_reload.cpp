#include "shared/widget_reload.h"

#include <array>
#include <chrono>
#include <functional>
#include <set>
#include <utility>

#include "platform/completion.h"
#include "platform/sleep.h"
#include "shared/identifiers.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

constexpr auto delays = std::to_array<std::chrono::milliseconds>({100ms, 300ms, 700ms, 1500ms, 3000ms});

}  // namespace

void WidgetReload::timelines() {
  for (const std::string_view kind : widgetKinds) center_.reloadTimelines(kind);
  center_.reloadAllTimelines();
}

Task<> WidgetReload::afterRoastPublished(std::optional<std::string> /*preview*/) {
  if (preferences_.open()) preferences_.synchronize();

  Completion<WidgetCenter::Configurations>::Start ask = [this](auto answer) {
    center_.currentConfigurations(std::move(answer));
  };
  const WidgetCenter::Configurations placed = co_await Completion<WidgetCenter::Configurations>(std::move(ask));
  if (placed) {
    for (const std::string& kind : std::set<std::string>(placed->begin(), placed->end())) {
      center_.reloadTimelines(kind);
    }
  }
  center_.reloadAllTimelines();

  for (const auto delay : delays) {
    co_await sleepFor(delay);
    timelines();
  }
}

}  // namespace quibbly
