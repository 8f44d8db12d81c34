#include "app/app_url.h"

#include <algorithm>
#include <string>

#include "fuzz/fuzzer.h"

void quibbly::fuzz::tryInput(std::string_view input) {
  const bool asks = AppURL::isRoastAction(input);
  demand(!asks || AppURL::hasScheme(input), "a URL of another scheme asks for nothing");

  std::string shouted(input);
  std::ranges::transform(shouted, shouted.begin(), [](char c) { return c >= 'a' && c <= 'z' ? char(c - 32) : c; });
  demand(AppURL::isRoastAction(shouted) == asks, "the case of the letters does not matter");
  demand(AppURL::isRoastAction(std::string(input) + "#roast") == asks, "a fragment asks for nothing");
}
