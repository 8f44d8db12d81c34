#include "platform/linux/xdg_shared_container.h"

namespace quibbly::linux_services {
namespace {

constexpr const char* groupIdentifier = "group.org.quibbly";

}  // namespace

XdgSharedContainer::XdgSharedContainer(const std::filesystem::path& dataHome, const std::filesystem::path& home) {
  if (dataHome.is_absolute()) {
    url_ = dataHome / groupIdentifier;
  } else if (home.is_absolute()) {
    url_ = home / ".local/share" / groupIdentifier;
  }
}

}  // namespace quibbly::linux_services
