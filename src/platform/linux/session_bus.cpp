#include "platform/linux/session_bus.h"

#include <chrono>
#include <utility>

namespace quibbly::linux_services {
namespace {

using namespace std::chrono_literals;

/// For being taken in by the bus, and then for one answer.
constexpr std::chrono::microseconds patience = 2s;

/// A question under way. It belongs to the slot of the call, which goes after the answer, or with the connection.
struct Question {
  MainQueue& queue;
  SessionBus::Answered answered;

  static int take(sd_bus_message* answer, void* self, sd_bus_error* /*error*/) {
    const auto answered = std::exchange(static_cast<Question*>(self)->answered, nullptr);
    // To what is under way when the connection breaks, sd-bus gives an error of its own making.
    const bool hasBus = sd_bus_is_open(sd_bus_message_get_bus(answer)) > 0;
    answered(hasBus ? answer : nullptr);
    return 1;
  }
  static void drop(void* self) {
    const std::unique_ptr<Question> question(static_cast<Question*>(self));
    if (!question->answered) return;
    question->queue.post([answered = std::move(question->answered)] { answered(nullptr); });
  }
};

using Handler = std::function<void()>;

}  // namespace

SessionBus::SessionBus(MainQueue& queue, std::string address) : queue_(queue), address_(std::move(address)) {}
SessionBus::~SessionBus() { close(); }

BusMessage SessionBus::newSignal(const char* path, const char* interface, const char* member) {
  sd_bus_message* created = nullptr;
  sd_bus* const bus = connection();
  const bool made = bus != nullptr && sd_bus_message_new_signal(bus, &created, path, interface, member) >= 0;
  return BusMessage(made ? created : nullptr);
}

BusMessage SessionBus::newCall(const char* service, const char* path, const char* interface, const char* member) {
  sd_bus_message* created = nullptr;
  sd_bus* const bus = connection();
  const bool made =
      bus != nullptr && sd_bus_message_new_method_call(bus, &created, service, path, interface, member) >= 0;
  return BusMessage(made ? created : nullptr);
}

void SessionBus::send(const BusMessage& message) {
  if (message && bus_) (void)sd_bus_send(bus_.get(), message.get(), nullptr);
}

void SessionBus::call(const BusMessage& question, Answered answered) {
  auto asked = std::make_unique<Question>(queue_, std::move(answered));
  sd_bus_slot* slot = nullptr;
  const bool sent = question && bus_ &&
                    sd_bus_call_async(bus_.get(), &slot, question.get(), &Question::take, asked.get(),
                                      static_cast<std::uint64_t>(patience.count())) >= 0;
  Question* const underWay = asked.release();
  if (!sent) {
    Question::drop(underWay);
    return;
  }
  sd_bus_slot_set_destroy_callback(slot, &Question::drop);
  sd_bus_slot_set_floating(slot, 1);
  sd_bus_slot_unref(slot);
}

SessionBus::AttachmentId SessionBus::attach(Attach attach) {
  const auto id = nextAttachment_;
  nextAttachment_ = AttachmentId{std::to_underlying(id) + 1};
  Attachment& added = attachments_.emplace(id, Attachment{.attach = std::move(attach), .slot = nullptr}).first->second;
  // To a connection that is made only now all of them are attached.
  if (connection() != nullptr && !added.isAttached) attachTo(added);
  return id;
}

void SessionBus::detach(AttachmentId attachment) {
  attachments_.erase(attachment);
  if (bus_) turnLater();
}

SessionBus::AttachmentId SessionBus::subscribe(std::string rule, std::function<void()> handler) {
  const auto call = [](sd_bus_message*, void* self, sd_bus_error*) {
    const Handler kept = *static_cast<Handler*>(self);  // it may detach itself
    kept();
    return 0;
  };
  const auto kept = std::make_shared<Handler>(std::move(handler));
  return attach([rule = std::move(rule), kept, call](sd_bus* bus) {
    sd_bus_slot* slot = nullptr;
    (void)sd_bus_add_match_async(bus, &slot, rule.c_str(), call, nullptr, kept.get());
    return slot;
  });
}

SessionBus::AttachmentId SessionBus::subscribeToOwnerOf(const std::string& name, std::function<void()> handler) {
  const std::string rule =
      "type='signal',sender='org.freedesktop.DBus',interface='org.freedesktop.DBus',member='NameOwnerChanged',arg0='";
  return subscribe(rule + name + "'", std::move(handler));
}

void SessionBus::attachTo(Attachment& attachment) {
  if (std::exchange(attachment.isAttached, true)) return;
  attachment.slot.reset(attachment.attach(bus_.get()));
}

/// The connection, which is served after the present turn, whatever is done with it; null without a bus.
sd_bus* SessionBus::connection() {
  if (!bus_ && !open()) return nullptr;
  turnLater();
  return sd_bus_is_open(bus_.get()) > 0 ? bus_.get() : nullptr;
}

bool SessionBus::open() {
  sd_event* events = nullptr;
  if (sd_event_new(&events) < 0) return false;
  events_.reset(events);
  bus_ = openSessionBus(address_);
  if (!bus_ || sd_bus_attach_event(bus_.get(), events, SD_EVENT_PRIORITY_NORMAL) < 0) {
    bus_.reset();
    return false;
  }
  queue_.watch(sd_event_get_fd(events), [this] { turn(); });
  connectLimit_ = queue_.runAt(queue_.now() + patience, [this] {
    if (sd_bus_is_ready(bus_.get()) <= 0) close();
  });
  for (auto& [id, attachment] : attachments_) attachTo(attachment);
  return true;
}

void SessionBus::close() {
  if (!bus_) return;
  queue_.cancel(connectLimit_);
  queue_.unwatch(sd_event_get_fd(events_.get()));
  for (auto& [id, attachment] : attachments_) {
    attachment.slot.reset();
    attachment.isAttached = false;
  }
  bus_.reset();
  events_.reset();
}

void SessionBus::turnLater() {
  if (std::exchange(turnIsPosted_, true)) return;
  queue_.post(lifetime_.whileItLasts([this] {
    turnIsPosted_ = false;
    turn();
  }));
}

/// Does what the connection has to do, a bounded part of it at a time, and leaves its descriptor set up for what is next.
void SessionBus::turn() {
  constexpr int most = 64;
  int done = 0;
  while (bus_ && done < most && sd_event_run(events_.get(), 0) > 0) ++done;
  if (!bus_) return;
  if (sd_bus_is_open(bus_.get()) <= 0) {
    close();
  } else if (done == most) {
    turnLater();
  }
}

}  // namespace quibbly::linux_services
