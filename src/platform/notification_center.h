#pragma once

#include <chrono>
#include <expected>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace quibbly {

/// Whether the user lets this program post notifications.
enum class AuthorizationStatus { notDetermined, denied, authorized, provisional, ephemeral };
/// Whether a notification that is posted comes up on the screen.
enum class AlertSetting { notSupported, disabled, enabled };
enum class InterruptionLevel { passive, active, timeSensitive, critical };

struct NotificationSettings {
  AuthorizationStatus authorizationStatus = AuthorizationStatus::denied;
  AlertSetting alertSetting = AlertSetting::notSupported;

  bool operator==(const NotificationSettings&) const = default;
};

/// What a program may ask to be allowed.
struct AuthorizationOptions {
  bool alert = false;
  bool sound = false;
  bool badge = false;

  bool operator==(const AuthorizationOptions&) const = default;
};

/// How a notification shows itself.
struct PresentationOptions {
  /// For a moment, over everything else.
  bool banner = false;
  /// Among those that were missed.
  bool list = false;
  bool sound = false;

  bool operator==(const PresentationOptions&) const = default;
};

struct NotificationRequest {
  /// The program's own name for it, by which it is withdrawn.
  std::string identifier;
  std::string title;
  /// Plain text, UTF-8.
  std::string body;
  std::string categoryIdentifier;
  std::map<std::string, std::string> userInfo;
  bool defaultSound = false;
  InterruptionLevel interruptionLevel = InterruptionLevel::active;
  /// How long after it was added it is delivered; absent delivers it at once.
  std::optional<std::chrono::milliseconds> delay;

  bool operator==(const NotificationRequest&) const = default;
};

/// Is asked how a notification of this program shows itself, each time one is delivered.
class NotificationCenterDelegate {
 public:
  virtual ~NotificationCenterDelegate() = default;
  [[nodiscard]] virtual PresentationOptions willPresent(const NotificationRequest& request) = 0;
};

/// The desktop's notification service. Nothing here waits: each question is answered by one call, within the service's time
/// limit, on a later turn of the main queue. Main thread.
class NotificationCenter {
 public:
  /// Why it was not added, in the words of the service.
  using Added = std::expected<void, std::string>;
  /// Whether it was granted; absent when asking failed.
  using Granted = std::optional<bool>;

  virtual ~NotificationCenter() = default;

  /// From now on asks the delegate, which must outlive what is added; null asks nobody, and everything is shown.
  virtual void setDelegate(NotificationCenterDelegate* delegate) = 0;
  /// The categories that requests may name, in place of those before.
  virtual void setCategories(std::vector<std::string> identifiers) = 0;

  virtual void settings(std::function<void(NotificationSettings)> answer) = 0;
  virtual void requestAuthorization(AuthorizationOptions options, std::function<void(Granted)> answer) = 0;
  /// Answers once the service took the notification. A delayed one counts as taken when there is a service to take it; what
  /// goes wrong when it is delivered is not told.
  virtual void add(NotificationRequest request, std::function<void(Added)> answer) = 0;
  /// Withdraws a delivered notification; one that is not there is nothing to withdraw.
  virtual void removeDelivered(const std::string& identifier) = 0;
};

}  // namespace quibbly
