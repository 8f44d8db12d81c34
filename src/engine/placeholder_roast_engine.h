#pragma once

#include <memory_resource>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/families.h"
#include "platform/secure_random.h"
#include "platform/wall_clock.h"
#include "records/last_roast.h"
#include "records/mac_mood.h"
#include "records/recent_roast_history.h"
#include "records/system_snapshot.h"

namespace quibbly {

/// Writes the roast: of all lines that fit the sample, the one of highest priority that was not said lately.
///
/// Keeps no state; may be called from any thread, and from several at once.
class PlaceholderRoastEngine {
 public:
  /// A line with its values filled in. `category` and `ruleId` live as long as the families.
  struct Candidate {
    std::string_view category;
    std::string_view ruleId;
    std::string templateId;
    std::pmr::string text;
    int priority = 0;
  };

  struct Ranked {
    /// Whether the condition of the candidate's family holds for the sample.
    bool matches = false;
    Candidate candidate;
  };

  PlaceholderRoastEngine(const WallClock& clock, SecureRandom& random, std::span<const Family> families = allFamilies())
      : clock_(clock), random_(random), families_(families) {}

  /// A roast for the sample and the mood made from it. `history` is what was said lately; the caller records the result
  /// in it when it keeps the roast. There always is one: with no candidate at all it is a line that says so.
  [[nodiscard]] LastRoast roast(const SystemSnapshot& snapshot, const MacMood& mood,
                                const RecentRoastHistory& history) const;

 private:
  using Pool = std::vector<const Candidate*>;

  [[nodiscard]] std::pmr::vector<Ranked> buildCandidates(const SystemSnapshot& snapshot, const MacMood& mood,
                                                         std::pmr::memory_resource& memory) const;
  [[nodiscard]] const Candidate* choose(const Pool& pool, const RecentRoastHistory& history) const;
  [[nodiscard]] const Candidate& chooseAmongSaid(const Pool& pool, const RecentRoastHistory& history) const;

  const WallClock& clock_;
  SecureRandom& random_;
  std::span<const Family> families_;
};

}  // namespace quibbly
