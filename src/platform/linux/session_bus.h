#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "platform/lifetime.h"
#include "platform/linux/bus_handles.h"
#include "platform/main_queue.h"

namespace quibbly::linux_services {

/// The bus of the user's session, over one connection for all who use it, served by the main queue.
///
/// Nothing here waits. The connection is made when it is first needed, and made anew by the next use after it was lost;
/// what is sent before the bus takes us in goes out once it does. A bus that does not take us in within a moment counts as
/// missing: what was sent is lost then, and who asked hears that there is no answer. Main thread.
class SessionBus {
 public:
  /// An answer, to be read inside the call. It may be an error (`sd_bus_message_is_method_error`), which a service that is
  /// silent for too long is too; null means that there is no bus.
  using Answered = std::function<void(sd_bus_message* answer)>;
  /// Sets up something that lasts as long as the connection; gives the slot that it hangs on, or null for none.
  using Attach = std::function<sd_bus_slot*(sd_bus* bus)>;
  enum class AttachmentId : std::uint64_t {};

  /// An empty address means that of the session.
  explicit SessionBus(MainQueue& queue, std::string address = "");
  SessionBus(const SessionBus&) = delete;
  SessionBus& operator=(const SessionBus&) = delete;
  ~SessionBus();

  /// Messages to be filled in and handed to `send` or `call`; null without a bus.
  [[nodiscard]] BusMessage newSignal(const char* path, const char* interface, const char* member);
  [[nodiscard]] BusMessage newCall(const char* service, const char* path, const char* interface, const char* member);

  /// Sends a signal, or a call whose answer nobody wants. Null is nothing to send.
  void send(const BusMessage& message);
  /// Sends a question, and calls back once, on a later turn of the queue and within four seconds.
  void call(const BusMessage& question, Answered answered);

  /// Attaches to the connection, if there is or can be one, and to each that is made anew, until it is detached.
  AttachmentId attach(Attach attach);
  void detach(AttachmentId attachment);

  /// Attaches a handler that is called for each message that fits the match rule.
  AttachmentId subscribe(std::string rule, std::function<void()> handler);
  /// Attaches a handler that is called whenever a name of the bus is taken or given up.
  AttachmentId subscribeToOwnerOf(const std::string& name, std::function<void()> handler);

 private:
  struct Attachment {
    Attach attach;
    BusSlot slot;
    bool isAttached = false;
  };

  sd_bus* connection();
  bool open();
  void close();
  void attachTo(Attachment& attachment);
  void turnLater();
  void turn();

  MainQueue& queue_;
  std::string address_;
  BusEvents events_;
  Bus bus_;
  std::map<AttachmentId, Attachment> attachments_;
  AttachmentId nextAttachment_{};
  MainQueue::TimerId connectLimit_{};
  bool turnIsPosted_ = false;
  Lifetime lifetime_;
};

}  // namespace quibbly::linux_services
