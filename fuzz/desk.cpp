#include "fuzz/desk.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

#include "fuzz/fuzzer.h"

namespace quibbly::fuzz {
namespace {

/// Of a socket without a file, one for each process.
std::string socketName() { return "quibbly-fuzz-" + std::to_string(::getpid()); }

int listenAt(const std::string& name) {
  const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
  name.copy(address.sun_path + 1, sizeof address.sun_path - 1);
  const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
  demand(listener >= 0 && ::bind(listener, reinterpret_cast<const sockaddr*>(&address), size) == 0 &&
             ::listen(listener, 4) == 0,
         "there is a socket");
  return listener;
}

/// What a bus says to those who come, take a name and ask for signals.
int answerAsBus(sd_bus_message* call) {
  const std::string_view member = sd_bus_message_get_member(call);
  if (member == "Hello") return sd_bus_reply_method_return(call, "s", Desk::quibbly);
  if (member == "RequestName") return sd_bus_reply_method_return(call, "u", 1U);
  return sd_bus_reply_method_return(call, "");
}

}  // namespace

Desk::Desk(Answer answer)
    : answer_(std::move(answer)), listener_(listenAt(socketName())), bus_(queue_, "unix:abstract=" + socketName()) {}

Desk::~Desk() { ::close(listener_); }

void Desk::run() {
  // Far more than any input needs; a bus on which it never becomes quiet would be a fault.
  constexpr int most = 10'000;
  for (int turns = 0; turns < most; ++turns) {
    const std::size_t waiting = queue_.waiting();
    queue_.run();
    const bool accepted = !others_ && accept();
    const bool moved = others_ && sd_bus_process(others_.get(), nullptr) > 0;
    if (!accepted && !moved && queue_.waiting() <= waiting) return;
  }
  demand(false, "the bus becomes quiet");
}

bool Desk::accept() {
  const int connection = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK);
  if (connection < 0) return false;
  sd_bus* made = nullptr;
  demand(sd_bus_new(&made) >= 0, "there is a connection");
  others_.reset(made);
  const bool works = sd_bus_set_fd(made, connection, connection) >= 0 &&
                     sd_bus_set_server(made, 1, {.qwords = {1, 2}}) >= 0 &&
                     sd_bus_add_filter(made, nullptr, &Desk::take, this) >= 0 && sd_bus_start(made) >= 0;
  demand(works, "the connection works");
  return true;
}

int Desk::take(sd_bus_message* message, void* self, sd_bus_error* /*error*/) {
  if (sd_bus_message_is_method_call(message, nullptr, nullptr) <= 0) return 0;
  const char* const destination = sd_bus_message_get_destination(message);
  if (destination != nullptr && std::string_view(destination) == "org.freedesktop.DBus") {
    return answerAsBus(message);
  }
  static_cast<Desk*>(self)->answer_(message);
  return 1;
}

}  // namespace quibbly::fuzz
