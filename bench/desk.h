#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

#include <benchmark/benchmark.h>

#include "fakes/until.h"
#include "fakes/x11_desk.h"
#include "fakes/x_server.h"
#include "running_program.h"

namespace quibbly::bench {

/// A screen with a tray, and one program on it.
class Desk {
 public:
  Desk() : desk_(server_.display()) {
    std::filesystem::create_directories(home_.path());
    desk_.appear();
  }

  void start(const char* program) {
    const auto container = home_.path() / "group.org.quibbly";
    // The others take such a word for a command or a URL.
    const bool isBare = program == std::string_view(BARE_TRAY_PROGRAM);
    running_.emplace(startOn(server_.display(), home_, program, isBare ? container.c_str() : nullptr));
  }
  /// Starts a program. The seconds until its icon is docked; absent when it never is.
  std::optional<double> dock(const char* program) {
    return secondsUntil([&] { start(program); }, [this] { return desk_.serve(); });
  }
  [[nodiscard]] const RunningProgram& program() const { return *running_; }

  /// The seconds from the click to the first pixel of the panel.
  std::optional<double> openPanel() {
    const std::uint32_t before = pixel();
    return secondsUntil([this] { desk_.click(); }, [&] { return pixel() != before; });
  }
  bool closePanel() {
    std::this_thread::sleep_for(betweenClicks);
    const std::uint32_t before = pixel();
    desk_.click();
    const bool isClosed = fakes::until([&] { return pixel() != before; });
    std::this_thread::sleep_for(betweenClicks);
    return isClosed;
  }
  /// Of quibbly: each has its key in the panel.
  bool openEveryFace() {
    constexpr xcb_keysym_t comma = 0x2c;
    constexpr xcb_keysym_t d = 0x64;
    return openByKey(d, "quibbly Dashboard") && openByKey(comma, "Settings");
  }

  /// Lets the program that was started settle, and measures it under that name while nobody asks it for anything.
  /// Whether it still runs.
  bool idle(benchmark::State& state, const std::string& name) {
    for (const auto end = Clock::now() + untilSettled; Clock::now() < end;) {
      desk_.serve();
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    const Use before = program().use();
    std::this_thread::sleep_for(idlePeriod);
    const Use used = difference(before, program().use());
    if (!used.runs) return false;
    tellIdle(state, used, name);
    state.counters[name + "Memory"] = program().proportionalSet();
    return true;
  }

 private:
  using Clock = std::chrono::steady_clock;

  /// Two clicks that come sooner after one another are a double click, or the click that closed the panel.
  static constexpr std::chrono::milliseconds betweenClicks{500};

  static std::optional<double> secondsUntil(const std::function<void()>& act, const std::function<bool()>& holds) {
    constexpr std::chrono::seconds patience(30);
    const auto begin = Clock::now();
    act();
    while (!holds()) {
      if (Clock::now() - begin > patience) return std::nullopt;
      // Between two looks the display serves the program.
      std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return std::chrono::duration<double>(Clock::now() - begin).count();
  }

  bool openByKey(xcb_keysym_t key, std::string_view title) {
    return desk_.openByKey("quibbly", key, title) && fakes::until([&] { return !desk_.shows("quibbly"); });
  }

  [[nodiscard]] std::uint32_t pixel() const { return desk_.pixel(desk_.width() - 170, 90); }

  fakes::XServer server_;
  fakes::X11Desk desk_;
  MemoryHome home_;
  std::optional<RunningProgram> running_;  // ends before its display and its home
};

}  // namespace quibbly::bench
