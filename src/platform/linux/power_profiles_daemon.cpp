#include "platform/linux/power_profiles_daemon.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <string_view>
#include <utility>

#include "platform/linux/bus_handles.h"

namespace quibbly::linux_services {
namespace {

using namespace std::chrono_literals;

struct DaemonName {
  const char* service;
  const char* path;
};

constexpr auto daemonNames = std::to_array<DaemonName>({
    {.service = "org.freedesktop.UPower.PowerProfiles", .path = "/org/freedesktop/UPower/PowerProfiles"},
    {.service = "net.hadess.PowerProfiles", .path = "/net/hadess/PowerProfiles"},
});

/// For connecting, and for one answer; a bus that works takes a hundredth of it.
constexpr std::chrono::microseconds patience = 200ms;

/// Whether the bus took us in. A call would wait for that without any limit.
bool becomesReady(sd_bus* bus) {
  using Clock = std::chrono::steady_clock;
  for (const auto end = Clock::now() + patience; Clock::now() < end;) {
    if (sd_bus_is_ready(bus) > 0) return true;
    const auto left = std::chrono::duration_cast<std::chrono::microseconds>(end - Clock::now());
    const int progress = sd_bus_process(bus, nullptr);
    if (progress < 0) return false;
    if (progress == 0) sd_bus_wait(bus, static_cast<std::uint64_t>(std::max<std::int64_t>(left.count(), 1)));
  }
  return false;
}

BusMessage questionFor(sd_bus* bus, const DaemonName& daemon) {
  sd_bus_message* created = nullptr;
  if (sd_bus_message_new_method_call(bus, &created, daemon.service, daemon.path, "org.freedesktop.DBus.Properties",
                                     "Get") < 0) {
    return nullptr;
  }
  BusMessage question(created);
  const bool isComplete = sd_bus_message_append(created, "ss", daemon.service, "ActiveProfile") >= 0 &&
                          sd_bus_message_set_auto_start(created, 0) >= 0;
  return isComplete ? std::move(question) : nullptr;
}

/// Absent when nobody answers under this name.
std::optional<bool> isPowerSaver(sd_bus* bus, const DaemonName& daemon) {
  const BusMessage question = questionFor(bus, daemon);
  sd_bus_message* received = nullptr;
  if (!question || sd_bus_call(bus, question.get(), patience.count(), nullptr, &received) < 0) return std::nullopt;
  const BusMessage answer(received);
  const char* profile = nullptr;
  if (sd_bus_message_read(received, "v", "s", &profile) < 0) return std::nullopt;
  return std::string_view(profile) == "power-saver";
}

}  // namespace

PowerProfilesDaemon::PowerProfilesDaemon(std::string busAddress) : busAddress_(std::move(busAddress)) {}

std::optional<bool> PowerProfilesDaemon::enabled() {
  const auto now = std::chrono::steady_clock::now();
  if (now >= askAgainAt_) {
    askAgainAt_ = now + 1min;
    lastAnswer_ = ask();
  }
  return lastAnswer_;
}

std::optional<bool> PowerProfilesDaemon::ask() const {
  const Bus bus = openSystemBus(busAddress_);
  if (!bus || !becomesReady(bus.get())) return std::nullopt;
  for (const DaemonName& daemon : daemonNames) {
    if (const auto answer = isPowerSaver(bus.get(), daemon)) return answer;
  }
  return std::nullopt;
}

}  // namespace quibbly::linux_services
