#include "engine/template_values.h"

#include "records/units.h"

namespace quibbly {
namespace {

/// Enough for the values of most lines, so that a line is written into memory of its final size.
constexpr std::size_t roomForValues = 16;

/// A capital first letter; the words are ASCII.
std::string capitalized(std::string_view word) {
  std::string text(word);
  if (text.front() >= 'a' && text.front() <= 'z') text.front() = static_cast<char>(text.front() - 'a' + 'A');
  return text;
}

}  // namespace

TemplateValues::TemplateValues(const SystemSnapshot& snapshot, const MacMood& mood) {
  using P = Placeholder;
  auto& self = *this;
  self[P::thermal] = rawValue(snapshot.thermalState);
  self[P::capitalThermal] = capitalized(rawValue(snapshot.thermalState));
  if (snapshot.batteryLevel) self[P::battery] = std::to_string(*snapshot.batteryLevel);
  self[P::ram] = std::to_string(wholePercent(snapshot.memoryUtilizationEstimate));
  self[P::diskGB] = oneDecimal(gigabytes(snapshot.diskFreeBytes));
  self[P::days] = std::to_string(wholeDays(snapshot.uptimeSeconds));
  self[P::apps] = std::to_string(snapshot.runningAppCount);
  self[P::browsers] = std::to_string(snapshot.browserCount);
  self[P::mood] = displayText(mood.label);
  self[P::score] = std::to_string(truncatedToInteger(mood.score));
}

std::pmr::string TemplateValues::fill(std::string_view line, std::pmr::memory_resource& memory) const {
  std::pmr::string text(&memory);
  text.reserve(line.size() + roomForValues);
  while (true) {
    const LinePart part = nextPart(line);
    text += part.literal;
    if (!part.placeholder) return text;
    text += texts_[static_cast<std::size_t>(*part.placeholder)];
    line = part.rest;
  }
}

}  // namespace quibbly
