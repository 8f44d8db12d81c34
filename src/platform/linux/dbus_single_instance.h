#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/lifetime.h"
#include "platform/linux/bus_handles.h"
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

  /// Something that another program asks for, to be done on a later turn of the queue.
  using Request = std::move_only_function<void(const Requests&)>;
  /// Whether the place is not taken yet.
  [[nodiscard]] bool isStarting() const { return answer_ != nullptr; }
  /// Takes a request, which counts as so many, and answers the call; one that comes before the place is taken waits for that.
  /// For the functions that sd-bus calls, and gives what they give back.
  int hear(sd_bus_message* call, sd_bus_error* error, std::size_t count, Request request);

 private:
  void requestName();
  void named(sd_bus_message* answer);
  void handOver();
  void settle(Place place);
  void post(Request request);
  /// Counts them; false when they are more than a user asks for in a second.
  [[nodiscard]] bool allows(std::size_t count);

  MainQueue& queue_;
  SessionBus& bus_;
  LockFile& lock_;
  Requests requests_;
  std::vector<std::string> urls_;
  std::function<void(Place)> answer_;  // empty once it was answered
  bool isFirst_ = false;
  bool hasAsked_ = false;
  /// What came before the place was taken, unanswered: the bus starts a program for a call, and passes that on with the name.
  struct Early {
    BusMessage call;
    Request request;
  };
  std::vector<Early> early_;
  /// How much was asked for in the second that began then.
  std::size_t asked_ = 0;
  ContinuousClock::time_point askedSince_;
  std::vector<SessionBus::AttachmentId> attachments_;
  Lifetime lifetime_;
};

}  // namespace quibbly::linux_services
