#include "notify/notification_post_error.h"

namespace quibbly {

std::string NotificationPostError::description() const {
  switch (kind_) {
    case Kind::denied:
      return "Notifications denied. System Settings → Notifications → quibbly.";
    case Kind::bannersDisabled:
      return "System Temporary banners are off or suppressed. Showing in-app desktop toast instead. For system banners "
             "use Permanent (Alerts), or keep Temporary and rely on the toast.";
    case Kind::duplicate:
      return "Skipped duplicate notification (same text as the previous one).";
    case Kind::requestFailed:
      break;
  }
  return payload_;
}

}  // namespace quibbly
