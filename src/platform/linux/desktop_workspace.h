#pragma once

#include <string>
#include <utility>

#include "platform/workspace.h"

namespace quibbly::linux_services {

/// Opens the desktop's notification settings for the URLs that mean the system's settings, x-apple.systempreferences:...;
/// and every other URL with the program that the user chose for its scheme. What has no scheme is no URL.
class DesktopWorkspace final : public Workspace {
 public:
  /// As XDG_CURRENT_DESKTOP and PATH have them.
  DesktopWorkspace(std::string currentDesktop, std::string searchPath)
      : currentDesktop_(std::move(currentDesktop)), searchPath_(std::move(searchPath)) {}

  [[nodiscard]] bool openURL(std::string_view url) override;

 private:
  [[nodiscard]] bool openSettings() const;
  [[nodiscard]] bool start(std::string_view command) const;

  std::string currentDesktop_;
  std::string searchPath_;
};

}  // namespace quibbly::linux_services
