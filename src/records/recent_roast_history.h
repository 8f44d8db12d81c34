#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quibbly {

/// A short memory of what was said, so that it is not said again at once.
struct RecentRoastHistory {
  /// How many texts, and how many template ids, `recording` keeps.
  static constexpr std::size_t limit = 12;

  /// Nothing said yet.
  static const RecentRoastHistory empty;

  /// Newest first. The same text can stand here several times.
  std::vector<std::string> texts;
  /// Newest first.
  std::vector<std::string> templateIds;
  /// The body of the last notification that was posted.
  std::optional<std::string> lastNotificationBody;

  /// This history with the roast in front of it; an absent template id leaves `templateIds` as it is.
  [[nodiscard]] RecentRoastHistory recording(const std::string& text,
                                             const std::optional<std::string>& templateId) const;

  bool operator==(const RecentRoastHistory&) const = default;
};

inline const RecentRoastHistory RecentRoastHistory::empty{};

}  // namespace quibbly
