#pragma once

#include <map>
#include <string>
#include <string_view>

#include "platform/linux/desktop_entry.h"

namespace quibbly::linux_services {

/// Installed desktop entries, looked up by their names. Pointers hold as long as nothing is added.
class DesktopIndex {
 public:
  /// The entry of an id that is taken already is dropped: directories come in the order of their precedence.
  void add(DesktopEntry entry);

  /// The entry whose StartupWMClass is exactly this; null when there is none.
  [[nodiscard]] const DesktopEntry* byStartupWmClass(std::string_view windowClass) const;

  /// The entry of this id; else of the id that the name becomes in lower case and with '-' for each space, as window
  /// classes such as "Some Editor" are meant; null when there is none.
  [[nodiscard]] const DesktopEntry* byId(std::string_view name) const;

 private:
  using Ids = std::map<std::string, DesktopEntry, std::less<>>;

  [[nodiscard]] const DesktopEntry* installed(std::string_view id) const;

  // Also those not installed: they hide entries of the directories that come later.
  Ids entries_;
  std::map<std::string, std::string, std::less<>> idsByClass_;
};

}  // namespace quibbly::linux_services
