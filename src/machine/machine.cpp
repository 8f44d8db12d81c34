#include "machine/machine.h"

#include <filesystem>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

#include "machine/environment.h"
#include "platform/first_known_low_power_mode.h"
#include "platform/linux/application_scopes.h"
#include "platform/linux/boot_clock_uptime.h"
#include "platform/linux/desktop_entries.h"
#include "platform/linux/home_directory.h"
#include "platform/linux/icu_user_calendar.h"
#include "platform/linux/icu_user_text.h"
#include "platform/linux/kernel_random.h"
#include "platform/linux/meminfo.h"
#include "platform/linux/platform_profile.h"
#include "platform/linux/posix_file_system.h"
#include "platform/linux/power_profiles_daemon.h"
#include "platform/linux/power_supplies.h"
#include "platform/linux/proc_stat.h"
#include "platform/linux/session_applications.h"
#include "platform/linux/sqlite_preference_store.h"
#include "platform/linux/statvfs_home_volume.h"
#include "platform/linux/system_wall_clock.h"
#include "platform/linux/thermal_sensors.h"
#include "platform/linux/x11_applications.h"
#include "platform/linux/xdg_shared_container.h"

namespace quibbly {

using namespace linux_services;

namespace {

constexpr const char* root = "/";

/// Where to ask for applications, most telling first.
std::vector<SessionApplications::Service> mostTelling(RunningApplications& windows, RunningApplications& scopes) {
  const std::string waylandDisplay = environment("WAYLAND_DISPLAY");
  const std::string sessionType = environment("XDG_SESSION_TYPE");
  if (isWaylandSession({.waylandDisplay = waylandDisplay, .sessionType = sessionType})) return {scopes, windows};
  return {windows, scopes};
}

}  // namespace

struct Machine::Services {
  SystemWallClock clock;
  KernelRandom random;
  PosixFileSystem files;
  IcuUserText userText;
  IcuUserCalendar calendar{
      dateLocale({.lcAll = environment("LC_ALL"), .lcTime = environment("LC_TIME"), .lang = environment("LANG")})};
  XdgSharedContainer container{environment("XDG_DATA_HOME"), homeDirectory()};
  SqlitePreferenceStore preferences{preferenceDirectory() / "preferences.db"};
  SqlitePreferenceStore groupPreferences{preferenceDirectory() / "group.org.quibbly.db"};
  ProcStat processor{root};
  MemInfo memory{root};
  StatvfsHomeVolume home{homeDirectory()};
  PowerSupplies power{root};
  DesktopEntries entries{
      dataDirectories({.dataHome = environment("XDG_DATA_HOME"),
                       .home = homeDirectory().string(),
                       .dataDirs = environment("XDG_DATA_DIRS")}),
      messageLocales(
          {.lcAll = environment("LC_ALL"), .lcMessages = environment("LC_MESSAGES"), .lang = environment("LANG")})};
  X11Applications windows{environment("DISPLAY"), entries};
  ApplicationScopes scopes{root, ::getuid(), entries};
  SessionApplications applications{mostTelling(windows, scopes)};
  ThermalSensors thermal{root};
  BootClockUptime uptime;
  PowerProfilesDaemon profilesDaemon;
  PlatformProfile firmwareProfile{root};
  FirstKnownLowPowerMode lowPower{{profilesDaemon, firmwareProfile}};
  std::optional<SystemMonitor> monitor;
};

Machine::Machine() : services_(std::make_unique<Services>()) {}
Machine::~Machine() = default;

SystemMonitor& Machine::monitor() {
  Services& s = *services_;
  if (!s.monitor) {
    s.monitor.emplace(s.clock, s.processor, s.memory, s.home, s.power, s.applications, s.thermal, s.uptime, s.lowPower);
  }
  return *s.monitor;
}
const WallClock& Machine::clock() const { return services_->clock; }
SecureRandom& Machine::random() { return services_->random; }
FileSystem& Machine::files() { return services_->files; }
PreferenceStore& Machine::preferences() { return services_->preferences; }
PreferenceStore& Machine::groupPreferences() { return services_->groupPreferences; }
const SharedContainer& Machine::container() const { return services_->container; }
const UserText& Machine::userText() const { return services_->userText; }
const UserCalendar& Machine::calendar() const { return services_->calendar; }

}  // namespace quibbly
