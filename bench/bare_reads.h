#pragma once

// What any sample of a machine without a display costs at the least, as the bare system calls that read it. C, for the C
// baselines too.

#include <dirent.h>
#include <fcntl.h>
#include <sys/statvfs.h>
#include <unistd.h>

static inline void readWhole(const char* path) {
  char buffer[8192];
  const int file = open(path, O_RDONLY | O_CLOEXEC);
  if (file < 0) return;
  while (read(file, buffer, sizeof buffer) > 0) {
  }
  close(file);
}

static inline void listDirectory(const char* path) {
  DIR* const directory = opendir(path);
  if (!directory) return;
  while (readdir(directory)) {
  }
  closedir(directory);
}

static inline int readSample(void) {
  struct statvfs volume;
  readWhole("/proc/stat");
  readWhole("/proc/meminfo");
  const int failed = statvfs("/root", &volume);
  listDirectory("/sys/class/power_supply");
  listDirectory("/sys/fs/cgroup/user.slice/user-0.slice/user@0.service/app.slice");
  listDirectory("/sys/fs/cgroup/unified/user.slice/user-0.slice/user@0.service/app.slice");
  listDirectory("/sys/fs/cgroup/systemd/user.slice/user-0.slice/user@0.service/app.slice");
  listDirectory("/sys/class/thermal");
  listDirectory("/sys/class/hwmon");
  readWhole("/sys/devices/system/cpu/cpu0/thermal_throttle/package_throttle_total_time_ms");
  readWhole("/sys/firmware/acpi/platform_profile");
  return failed;
}
