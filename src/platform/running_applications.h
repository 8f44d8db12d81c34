#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/activation_policy.h"

namespace quibbly {

struct RunningApplication {
  ActivationPolicy policy = ActivationPolicy::regular;
  /// Absent for a program that no installed application claims.
  std::optional<std::string> bundleIdentifier;

  bool operator==(const RunningApplication&) const = default;
};

struct FrontmostApplication {
  /// The name in the user's language.
  std::optional<std::string> localizedName;
  std::optional<std::string> bundleIdentifier;

  bool operator==(const FrontmostApplication&) const = default;
};

/// One reading of the desktop, this program left out.
struct ApplicationsReading {
  /// One entry a process: the same program started twice stands here twice.
  std::vector<RunningApplication> running;
  /// Absent when none is in front, or when the desktop does not tell.
  std::optional<FrontmostApplication> frontmost;

  bool operator==(const ApplicationsReading&) const = default;
};

/// The applications of the user's session; asked on the monitor's thread.
class RunningApplications {
 public:
  virtual ~RunningApplications() = default;
  /// Absent when there is nobody to ask.
  [[nodiscard]] virtual std::optional<ApplicationsReading> running() = 0;
};

}  // namespace quibbly
