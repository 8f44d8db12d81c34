#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/lifetime.h"
#include "platform/linux/lock_file.h"
#include "platform/linux/session_bus.h"
#include "platform/single_instance.h"

namespace quibbly::linux_services {

/// One instance by a name on the session bus, where it answers org.freedesktop.Application; and by a lock file, for
/// programs that have no bus or not the same one. A connection that is made anew takes the name again.
class DBusSingleInstance final : public SingleInstance {
 public:
  DBusSingleInstance(MainQueue& queue, SessionBus& bus, LockFile& lock) : queue_(queue), bus_(bus), lock_(lock) {}
  DBusSingleInstance(const DBusSingleInstance&) = delete;
  DBusSingleInstance& operator=(const DBusSingleInstance&) = delete;
  ~DBusSingleInstance() override;

  void claim(Requests requests, std::vector<std::string> urls, std::function<void(Place)> answer) override;

  /// Hands a request of another program to the queue; false before the place is taken, when there is nobody to hear it. For
  /// the functions that sd-bus calls.
  [[nodiscard]] bool pass(std::move_only_function<void(const Requests&)> request);

 private:
  void requestName();
  void named(sd_bus_message* answer);
  void handOver();
  void settle(Place place);

  MainQueue& queue_;
  SessionBus& bus_;
  LockFile& lock_;
  Requests requests_;
  std::vector<std::string> urls_;
  std::function<void(Place)> answer_;  // empty once it was answered
  bool isFirst_ = false;
  bool hasAsked_ = false;
  std::vector<SessionBus::AttachmentId> attachments_;
  Lifetime lifetime_;
};

}  // namespace quibbly::linux_services
