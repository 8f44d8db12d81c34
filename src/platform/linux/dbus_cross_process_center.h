#pragma once

#include <vector>

#include "platform/cross_process_center.h"
#include "platform/linux/session_bus.h"

namespace quibbly::linux_services {

/// Notifications over the session bus: the name I.M is the signal M of interface I, sent from /org/quibbly/Quibbly. Without
/// a bus nothing is posted and nothing is heard.
class DBusCrossProcessCenter final : public CrossProcessCenter {
 public:
  explicit DBusCrossProcessCenter(SessionBus& bus) : bus_(bus) {}
  DBusCrossProcessCenter(const DBusCrossProcessCenter&) = delete;
  DBusCrossProcessCenter& operator=(const DBusCrossProcessCenter&) = delete;
  ~DBusCrossProcessCenter() override;

  void post(std::string_view name) override;
  void addObserver(void* observer, Callback callback, std::string_view name) override;
  void removeObserver(void* observer, std::string_view name) override;

 private:
  struct Observer {
    void* observer;
    std::string name;
    SessionBus::AttachmentId subscription;
  };

  SessionBus& bus_;
  std::vector<Observer> observers_;
};

}  // namespace quibbly::linux_services
