#pragma once

#include "platform/shared_container.h"

namespace quibbly::linux_services {

/// The group's directory among the user's data files: `group.org.quibbly` below $XDG_DATA_HOME.
class XdgSharedContainer final : public SharedContainer {
 public:
  /// The environment's XDG_DATA_HOME, which counts when it is an absolute path; else the home directory's .local/share
  /// does. With neither there is no container.
  XdgSharedContainer(const std::filesystem::path& dataHome, const std::filesystem::path& home);

  [[nodiscard]] const std::optional<std::filesystem::path>& url() const override { return url_; }

 private:
  std::optional<std::filesystem::path> url_;
};

}  // namespace quibbly::linux_services
