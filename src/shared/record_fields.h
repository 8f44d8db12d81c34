#pragma once

#include <cstddef>
#include <tuple>
#include <type_traits>

#include "records/last_roast.h"
#include "records/mac_mood.h"
#include "records/recent_roast_history.h"
#include "records/system_snapshot.h"
#include "shared/pending_notify.h"
#include "shared/roast_request.h"
#include "shared/widget_generation.h"
#include "shared/widget_snapshot.h"

namespace quibbly {

/// One field of a record and its key in JSON. A field that is a std::optional may be missing or null when read, and is
/// left out when written while it is absent.
template <typename Record, typename Member>
struct Field {
  const char* key;
  Member Record::* member;
};

/// A record's fields: the one table that writing and reading share. Specialised for every record that has a JSON form.
template <typename Record>
inline constexpr auto recordFields = nullptr;

template <typename Record>
concept HasFields = !std::is_same_v<decltype(recordFields<Record>), const std::nullptr_t>;

template <>
inline constexpr auto recordFields<MacMood> =
    std::tuple(Field{"label", &MacMood::label}, Field{"score", &MacMood::score});

template <>
inline constexpr auto recordFields<LastRoast> = std::tuple(
    Field{"category", &LastRoast::category}, Field{"createdAt", &LastRoast::createdAt}, Field{"mood", &LastRoast::mood},
    Field{"ruleId", &LastRoast::ruleId}, Field{"templateId", &LastRoast::templateId}, Field{"text", &LastRoast::text});

template <>
inline constexpr auto recordFields<RecentRoastHistory> =
    std::tuple(Field{"lastNotificationBody", &RecentRoastHistory::lastNotificationBody},
               Field{"templateIds", &RecentRoastHistory::templateIds}, Field{"texts", &RecentRoastHistory::texts});

template <>
inline constexpr auto recordFields<WidgetSnapshot> = std::tuple(
    Field{"batteryLevel", &WidgetSnapshot::batteryLevel}, Field{"capturedAt", &WidgetSnapshot::capturedAt},
    Field{"cpuUsageEstimate", &WidgetSnapshot::cpuUsageEstimate},
    Field{"diskFreeBytes", &WidgetSnapshot::diskFreeBytes},
    Field{"memoryUtilizationEstimate", &WidgetSnapshot::memoryUtilizationEstimate},
    Field{"mood", &WidgetSnapshot::mood}, Field{"runningAppCount", &WidgetSnapshot::runningAppCount},
    Field{"thermalState", &WidgetSnapshot::thermalState}, Field{"uptimeSeconds", &WidgetSnapshot::uptimeSeconds});

template <>
inline constexpr auto recordFields<WidgetGeneration> =
    std::tuple(Field{"roastPreview", &WidgetGeneration::roastPreview}, Field{"token", &WidgetGeneration::token},
               Field{"updatedAt", &WidgetGeneration::updatedAt});

template <>
inline constexpr auto recordFields<RoastRequest> =
    std::tuple(Field{"createdAt", &RoastRequest::createdAt}, Field{"source", &RoastRequest::source});

template <>
inline constexpr auto recordFields<PendingNotify> =
    std::tuple(Field{"body", &PendingNotify::body}, Field{"category", &PendingNotify::category},
               Field{"createdAt", &PendingNotify::createdAt}, Field{"title", &PendingNotify::title});

/// Printed, never stored.
template <>
inline constexpr auto recordFields<SystemSnapshot> = std::tuple(
    Field{"batteryLevel", &SystemSnapshot::batteryLevel}, Field{"browserCount", &SystemSnapshot::browserCount},
    Field{"capturedAt", &SystemSnapshot::capturedAt}, Field{"cpuUsage", &SystemSnapshot::cpuUsage},
    Field{"diskFreeBytes", &SystemSnapshot::diskFreeBytes}, Field{"diskTotalBytes", &SystemSnapshot::diskTotalBytes},
    Field{"electronAppCount", &SystemSnapshot::electronAppCount},
    Field{"frontmostAppName", &SystemSnapshot::frontmostAppName},
    Field{"frontmostBundleIdentifier", &SystemSnapshot::frontmostBundleIdentifier},
    Field{"isCharging", &SystemSnapshot::isCharging}, Field{"lowPowerMode", &SystemSnapshot::lowPowerMode},
    Field{"memoryUtilizationEstimate", &SystemSnapshot::memoryUtilizationEstimate},
    Field{"runningAppCount", &SystemSnapshot::runningAppCount}, Field{"swapUsedBytes", &SystemSnapshot::swapUsedBytes},
    Field{"thermalState", &SystemSnapshot::thermalState}, Field{"uptimeSeconds", &SystemSnapshot::uptimeSeconds});

}  // namespace quibbly
