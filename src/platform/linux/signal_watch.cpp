#include "platform/linux/signal_watch.h"

#include <sys/signalfd.h>
#include <unistd.h>
#include <utility>

namespace quibbly::linux_services {
namespace {

sigset_t setOf(std::initializer_list<Signals> groups) {
  sigset_t set;
  ::sigemptyset(&set);
  for (const Signals group : groups) {
    for (const int signal : group) ::sigaddset(&set, signal);
  }
  return set;
}

int descriptorOf(const sigset_t& signals) { return ::signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC); }

}  // namespace

void holdBack(Signals signals) {
  const sigset_t set = setOf({signals});
  (void)::pthread_sigmask(SIG_BLOCK, &set, nullptr);
}

void letThrough(Signals signals) {
  const sigset_t set = setOf({signals});
  (void)::pthread_sigmask(SIG_UNBLOCK, &set, nullptr);
}

SignalWatch::SignalWatch(MainQueue& queue, std::initializer_list<Signals> groups, std::function<void(int)> heard)
    : queue_(queue), heard_(std::move(heard)), signals_(descriptorOf(setOf(groups))) {
  queue_.watch(signals_.get(), [this] { read(); });
}

SignalWatch::~SignalWatch() { queue_.unwatch(signals_.get()); }

/// One at a time: what is left calls again, unless this watch is gone by then.
void SignalWatch::read() const {
  signalfd_siginfo signal{};
  if (::read(signals_.get(), &signal, sizeof signal) != sizeof signal) return;
  const auto heard = heard_;
  heard(static_cast<int>(signal.ssi_signo));
}

}  // namespace quibbly::linux_services
