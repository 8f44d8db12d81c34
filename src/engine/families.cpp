#include "engine/families.h"

#include <array>
#include <numeric>

#include "engine/families/apps_many.h"
#include "engine/families/apps_mid.h"
#include "engine/families/battery_low.h"
#include "engine/families/battery_mid.h"
#include "engine/families/browsers_many.h"
#include "engine/families/disk_low.h"
#include "engine/families/general_ok.h"
#include "engine/families/lifestyle_vibe.h"
#include "engine/families/ram_high.h"
#include "engine/families/ram_mid.h"
#include "engine/families/thermal_high.h"
#include "engine/families/uptime_long.h"
#include "engine/families/uptime_mid.h"

namespace quibbly {
namespace {

constexpr auto families =
    std::to_array<Family>({thermalHigh, batteryLow, batteryMid, ramHigh, ramMid, diskLow, uptimeLong, uptimeMid,
                           appsMany, appsMid, browsersMany, lifestyleVibe, generalOk});

consteval std::size_t lineCount() {
  return std::accumulate(families.begin(), families.end(), std::size_t{0},
                         [](std::size_t sum, const Family& family) { return sum + family.lines.size(); });
}

static_assert(lineCount() == 292 && templateIdsAreUnique(families));

}  // namespace

std::span<const Family> allFamilies() { return families; }

}  // namespace quibbly
