#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/widget_center.h"

namespace quibbly::fakes {

/// Notes what is reloaded; answers at once with what the test placed.
class FakeWidgetCenter : public WidgetCenter {
 public:
  std::vector<std::string> reloads;
  Configurations placed;

  void reloadTimelines(std::string_view kind) override { reloads.emplace_back(kind); }
  void reloadAllTimelines() override { reloads.emplace_back("all"); }
  void currentConfigurations(std::function<void(Configurations)> answer) override { answer(placed); }
};

}  // namespace quibbly::fakes
