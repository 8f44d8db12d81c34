#pragma once

#include <functional>
#include <string>

#include "fakes/manual_queue.h"
#include "platform/linux/session_bus.h"

namespace quibbly::fuzz {

/// A session's bus and all who are on it, in the fuzzer's own process: the other end of the connection that quibbly
/// makes.
class Desk {
 public:
  /// Answers a call of quibbly's; the bus itself answers those to org.freedesktop.DBus.
  using Answer = std::function<void(sd_bus_message* call)>;

  /// What the bus calls the connection that quibbly makes.
  static constexpr const char* quibbly = ":1.1";

  explicit Desk(Answer answer);
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;
  ~Desk();

  [[nodiscard]] fakes::ManualQueue& queue() { return queue_; }
  [[nodiscard]] linux_services::SessionBus& bus() { return bus_; }
  /// The others' end; null before quibbly has connected.
  [[nodiscard]] sd_bus* others() const { return others_.get(); }
  /// Whether messages get through.
  [[nodiscard]] bool isOpen() const { return others_ && sd_bus_is_ready(others_.get()) > 0; }

  /// Passes messages to and fro until there are no more.
  void run();

 private:
  static int take(sd_bus_message* message, void* self, sd_bus_error* error);
  bool accept();

  Answer answer_;
  int listener_;
  linux_services::Bus others_;
  fakes::ManualQueue queue_;
  linux_services::SessionBus bus_;
};

}  // namespace quibbly::fuzz
