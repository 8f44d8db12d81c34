#pragma once

#include <array>
#include <memory_resource>
#include <string>
#include <string_view>

#include "engine/placeholders.h"
#include "records/mac_mood.h"
#include "records/system_snapshot.h"

namespace quibbly {

/// The texts that stand in for the placeholders of every line about one sample, formatted once.
///
/// Integers print plainly, without grouping. Figures that fit no integer are set by `records/units.h`: an endless uptime
/// prints as the largest number of days there is, one that is not a number as 0.
class TemplateValues {
 public:
  TemplateValues(const SystemSnapshot& snapshot, const MacMood& mood);

  /// The line with every placeholder replaced; the text lives in `memory`.
  [[nodiscard]] std::pmr::string fill(std::string_view line, std::pmr::memory_resource& memory) const;

 private:
  std::string& operator[](Placeholder placeholder) { return texts_[static_cast<std::size_t>(placeholder)]; }

  std::array<std::string, placeholderNames.size()> texts_;
};

}  // namespace quibbly
