#include "shared/json_values.h"

#include <algorithm>
#include <cmath>

#include "shared/iso8601.h"

namespace quibbly {
namespace {

bool isFinite(const nlohmann::json& value) {
  if (value.is_number_float()) return std::isfinite(value.get<double>());
  return std::ranges::all_of(value.begin(), value.end(), [&value](const nlohmann::json& inner) {
    return &inner == &value || isFinite(inner);  // a plain value iterates over itself
  });
}

}  // namespace

nlohmann::json jsonOf(const MacMood& mood) { return {{"label", rawValue(mood.label)}, {"score", mood.score}}; }

nlohmann::json jsonOf(const LastRoast& roast) {
  nlohmann::json object = {{"category", roast.category},
                           {"createdAt", iso8601Text(roast.createdAt)},
                           {"mood", jsonOf(roast.mood)},
                           {"text", roast.text}};
  setIfPresent(object, "ruleId", roast.ruleId);
  setIfPresent(object, "templateId", roast.templateId);
  return object;
}

std::expected<std::string, JsonTextError> jsonText(const nlohmann::json& object) {
  if (!isFinite(object)) return std::unexpected(JsonTextError::notFinite);
  return object.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace quibbly
