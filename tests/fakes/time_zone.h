#pragma once

#include <cstdlib>

namespace quibbly::fakes {

/// The user's time zone for as long as it lives.
class TimeZone {
 public:
  explicit TimeZone(const char* name) { set(name); }
  TimeZone(const TimeZone&) = delete;
  TimeZone& operator=(const TimeZone&) = delete;
  ~TimeZone() { ::unsetenv("TZ"); }

  void set(const char* name) { ::setenv("TZ", name, 1); }
};

}  // namespace quibbly::fakes
