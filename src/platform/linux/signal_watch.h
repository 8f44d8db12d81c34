#pragma once

#include <csignal>
#include <functional>
#include <initializer_list>

#include "platform/linux/file_descriptor.h"
#include "platform/main_queue.h"

namespace quibbly::linux_services {

using Signals = std::initializer_list<int>;

/// Those that ask a program to end.
inline constexpr Signals endingSignals = {SIGINT, SIGQUIT, SIGTERM, SIGHUP};
/// Those by which a terminal changes under a program that draws on it.
inline constexpr Signals terminalSignals = {SIGWINCH, SIGTSTP, SIGCONT};

/// Holds signals back, for a `SignalWatch` to tell. To be called before any thread is started: all of them inherit it, and
/// so do programs that are started, which have to undo it.
void holdBack(Signals signals);
/// Has them do again what they always do.
void letThrough(Signals signals);

/// Tells of signals that are held back, on later turns of the main queue. Main thread.
class SignalWatch {
 public:
  /// Calls with the signal's number. The call may end this watch.
  SignalWatch(MainQueue& queue, std::initializer_list<Signals> groups, std::function<void(int)> heard);
  SignalWatch(const SignalWatch&) = delete;
  SignalWatch& operator=(const SignalWatch&) = delete;
  ~SignalWatch();

 private:
  void read() const;

  MainQueue& queue_;
  std::function<void(int)> heard_;
  FileDescriptor signals_;
};

}  // namespace quibbly::linux_services
