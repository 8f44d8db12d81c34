#include "shared/json_coding.h"

#include <algorithm>
#include <cmath>

namespace quibbly {
namespace {

bool isFinite(const nlohmann::json& json) {
  if (json.is_number_float()) return std::isfinite(json.get<double>());
  return !json.is_structured() || std::ranges::all_of(json, isFinite);
}

}  // namespace

std::expected<std::string, JsonError> jsonText(const nlohmann::json& json) {
  if (!isFinite(json)) return std::unexpected(JsonError::notFinite);
  return json.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::optional<nlohmann::json> jsonFromText(std::string_view text) {
  // The parser would take it for the end, whatever follows.
  if (text.contains('\0')) return std::nullopt;
  auto json = nlohmann::json::parse(text, nullptr, /*allow_exceptions=*/false);
  if (json.is_discarded()) return std::nullopt;
  return json;
}

}  // namespace quibbly
