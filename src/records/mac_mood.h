#pragma once

#include <array>
#include <string_view>

#include "records/raw_values.h"

namespace quibbly {

/// What the machine feels about its owner.
struct MacMood {
  /// The band that the score falls in, in order of rising score.
  enum class Label { proud, concerned, disappointed, judgingYou, preparingComplaint, requestingNewOwner };

  /// 0 to 100; higher is worse.
  double score = 0.0;
  Label label = Label::proud;

  bool operator==(const MacMood&) const = default;
};

/// The raw value is the text that the user reads.
template <>
inline constexpr auto rawValues<MacMood::Label> = std::to_array<RawValue<MacMood::Label, std::string_view>>({
    {MacMood::Label::proud, "Proud", "Proud"},
    {MacMood::Label::concerned, "Concerned", "Concerned"},
    {MacMood::Label::disappointed, "Disappointed", "Disappointed"},
    {MacMood::Label::judgingYou, "Judging You", "Judging You"},
    {MacMood::Label::preparingComplaint, "Preparing a Complaint", "Preparing a Complaint"},
    {MacMood::Label::requestingNewOwner, "Requesting a New Owner", "Requesting a New Owner"},
});

}  // namespace quibbly
