#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "platform/cross_process_center.h"

namespace quibbly::fakes {

/// Delivers within this process, inside the call.
class FakeCrossProcessCenter : public CrossProcessCenter {
 public:
  std::vector<std::string> posts;

  void post(std::string_view name) override {
    posts.emplace_back(name);
    for (const Observer& o : std::vector(observers_)) {
      if (o.name == name && std::ranges::find(observers_, o) != observers_.end()) o.callback(o.observer);
    }
  }
  void addObserver(void* observer, Callback callback, std::string_view name) override {
    observers_.push_back({observer, callback, std::string(name)});
  }
  void removeObserver(void* observer, std::string_view name) override {
    std::erase_if(observers_, [&](const Observer& o) { return o.observer == observer && o.name == name; });
  }

 private:
  struct Observer {
    void* observer;
    Callback callback;
    std::string name;

    bool operator==(const Observer&) const = default;
  };
  std::vector<Observer> observers_;
};

}  // namespace quibbly::fakes
