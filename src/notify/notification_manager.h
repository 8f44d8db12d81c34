#pragma once

#include <chrono>
#include <expected>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "notify/desktop_banner.h"
#include "notify/notification_post_error.h"
#include "platform/application.h"
#include "platform/launched_tasks.h"
#include "platform/notification_center.h"
#include "platform/secure_random.h"
#include "platform/user_text.h"
#include "platform/workspace.h"
#include "shared/recent_roasts.h"

namespace quibbly {

/// Whether a notification would be seen, and how to say so in one line.
struct NotificationCapability {
  bool allowsBanners = false;
  std::string summary;

  bool operator==(const NotificationCapability&) const = default;
};

/// Announces roasts: as a toast in any case, and as a notification of the desktop when that is allowed and says something
/// new. Main thread; must outlive the tasks it makes, but for the withdrawals, which go on without it.
class NotificationManager final : private NotificationCenterDelegate {
 public:
  using Posted = std::expected<void, NotificationPostError>;

  NotificationManager(MainQueue& queue, NotificationCenter& center, Application& application, Workspace& workspace,
                      DesktopBanner& banner, const RecentRoasts& recentRoasts, const UserText& userText,
                      SecureRandom& random);
  NotificationManager(const NotificationManager&) = delete;
  NotificationManager& operator=(const NotificationManager&) = delete;
  ~NotificationManager() override;

  /// Introduces this program to the notification service, once.
  void configureIfNeeded();

  /// Whether notifications may be posted; asks the user when that was never decided.
  [[nodiscard]] Task<bool> requestAuthorizationIfNeeded();

  /// Shows the toast, then posts the notification and withdraws it three minutes later. While one of this program's windows
  /// has the keyboard the desktop would keep quiet, so they are hidden for a moment.
  [[nodiscard]] Task<Posted> postRoast(std::string title, std::string body, std::string category);

  [[nodiscard]] Task<NotificationCapability> currentCapability();

  void openSystemNotificationSettings();

  /// Withdraws the notification after the delay, in place of an earlier plan for it.
  void scheduleRemoval(const std::string& of, std::chrono::milliseconds after);

 private:
  using RemovalTasks = std::map<std::string, TaskHandle>;

  [[nodiscard]] PresentationOptions willPresent(const NotificationRequest& request) override;

  static Task<> removal(NotificationCenter& center, std::weak_ptr<RemovalTasks> pending, std::string identifier,
                        std::chrono::milliseconds delay);

  [[nodiscard]] Task<NotificationSettings> settings();
  [[nodiscard]] Task<NotificationCenter::Added> add(NotificationRequest request);
  [[nodiscard]] bool isDuplicate(std::string_view body) const;
  [[nodiscard]] NotificationRequest requestFor(std::string title, std::string body, std::string category);
  void remember(const std::string& body);
  void showAgainLater();

  MainQueue& queue_;
  NotificationCenter& center_;
  Application& application_;
  Workspace& workspace_;
  DesktopBanner& banner_;
  const RecentRoasts& recentRoasts_;
  const UserText& userText_;
  SecureRandom& random_;

  bool isConfigured_ = false;
  std::shared_ptr<RemovalTasks> pendingRemovalTasks_ = std::make_shared<RemovalTasks>();
  std::vector<std::string> recentBodies_;  // as posted, newest first
};

}  // namespace quibbly
