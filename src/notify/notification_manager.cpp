#include "notify/notification_manager.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "platform/completion.h"
#include "platform/sleep.h"
#include "shared/uuid.h"

namespace quibbly {
namespace {

using namespace std::chrono_literals;

constexpr const char* categoryIdentifier = "roast.category";
constexpr std::size_t recentBodyLimit = 8;
constexpr auto toastDuration = 5500ms;
/// How long the windows have to go before a notification is delivered, and when they come back.
constexpr auto deliveryDelay = 350ms;
constexpr auto hiddenFor = 1200ms;
constexpr auto removalDelay = 180s;

constexpr auto settingsPages = std::to_array<std::string_view>({
    "x-apple.systempreferences:com.apple.Notifications-Settings.extension",
    "x-apple.systempreferences:com.apple.preference.notifications",
    "x-apple.systempreferences:com.apple.settings.Notifications",
});

bool mayPost(AuthorizationStatus status) {
  return status == AuthorizationStatus::authorized || status == AuthorizationStatus::provisional ||
         status == AuthorizationStatus::ephemeral;
}

std::unexpected<NotificationPostError> failure(NotificationPostError::Kind kind, std::string payload = "") {
  return std::unexpected(NotificationPostError(kind, std::move(payload)));
}

}  // namespace

NotificationManager::NotificationManager(MainQueue& queue, NotificationCenter& center, Application& application,
                                         Workspace& workspace, DesktopBanner& banner, const RecentRoasts& recentRoasts,
                                         const UserText& userText, SecureRandom& random)
    : queue_(queue),
      center_(center),
      application_(application),
      workspace_(workspace),
      banner_(banner),
      recentRoasts_(recentRoasts),
      userText_(userText),
      random_(random) {
  // What was announced last before a restart still counts as said.
  if (auto body = recentRoasts_.history().lastNotificationBody) recentBodies_.push_back(std::move(*body));
}

NotificationManager::~NotificationManager() {
  if (isConfigured_) center_.setDelegate(nullptr);
}

void NotificationManager::configureIfNeeded() {
  if (std::exchange(isConfigured_, true)) return;
  center_.setDelegate(this);
  center_.setCategories({categoryIdentifier});
}

Task<bool> NotificationManager::requestAuthorizationIfNeeded() {
  configureIfNeeded();
  const NotificationSettings now = co_await settings();
  if (now.authorizationStatus != AuthorizationStatus::notDetermined) co_return mayPost(now.authorizationStatus);
  application_.activate(true);
  Completion<NotificationCenter::Granted>::Start ask = [this](auto answer) {
    center_.requestAuthorization({.alert = true, .sound = true, .badge = true}, std::move(answer));
  };
  const NotificationCenter::Granted granted = co_await Completion<NotificationCenter::Granted>(std::move(ask));
  co_return granted.value_or(false);
}

Task<NotificationManager::Posted> NotificationManager::postRoast(std::string title, std::string body,
                                                                 std::string category) {
  banner_.show(title, body, toastDuration);
  const bool allowed = co_await requestAuthorizationIfNeeded();
  if (!allowed) co_return failure(NotificationPostError::Kind::denied);
  if (isDuplicate(body)) co_return failure(NotificationPostError::Kind::duplicate);

  NotificationRequest request = requestFor(std::move(title), body, std::move(category));
  const std::string identifier = request.identifier;
  const bool hidden = application_.isActive();
  if (hidden) {
    application_.hide();
    request.delay = deliveryDelay;
  }
  const NotificationCenter::Added added = co_await add(std::move(request));
  if (!added) {
    if (hidden) application_.unhide();
    co_return failure(NotificationPostError::Kind::requestFailed, added.error());
  }
  remember(body);
  scheduleRemoval(identifier, removalDelay);
  if (hidden) showAgainLater();
  const NotificationCapability capability = co_await currentCapability();
  if (!capability.allowsBanners) co_return failure(NotificationPostError::Kind::bannersDisabled);
  co_return Posted();
}

Task<NotificationCapability> NotificationManager::currentCapability() {
  configureIfNeeded();
  const NotificationSettings now = co_await settings();
  NotificationCapability capability;
  if (!mayPost(now.authorizationStatus)) {
    capability.summary = "Permission: not allowed";
  } else if (now.alertSetting == AlertSetting::enabled) {
    capability.allowsBanners = true;
    capability.summary =
        "System alerts allowed — Temporary may still be suppressed while app is frontmost; desktop toast always shows.";
  } else {
    capability.summary = "System Temporary/Permanent alerts limited — desktop toast still shows.";
  }
  co_return capability;
}

void NotificationManager::openSystemNotificationSettings() {
  [[maybe_unused]] const bool opened =
      std::ranges::any_of(settingsPages, [this](std::string_view page) { return workspace_.openURL(page); });
}

void NotificationManager::scheduleRemoval(const std::string& of, std::chrono::milliseconds after) {
  TaskHandle& planned = (*pendingRemovalTasks_)[of];
  planned.cancel();
  planned = launch(queue_, removal(center_, pendingRemovalTasks_, of, after));
}

Task<> NotificationManager::removal(NotificationCenter& center, std::weak_ptr<RemovalTasks> pending,
                                    std::string identifier, std::chrono::milliseconds delay) {
  co_await sleepFor(delay);
  const bool cancelled = co_await isCancelled();
  if (cancelled) co_return;
  center.removeDelivered(identifier);
  if (const auto tasks = pending.lock()) tasks->erase(identifier);
}

PresentationOptions NotificationManager::willPresent(const NotificationRequest& /*request*/) {
  return {.banner = true, .list = true, .sound = true};
}

Task<NotificationSettings> NotificationManager::settings() {
  Completion<NotificationSettings>::Start ask = [this](auto answer) { center_.settings(std::move(answer)); };
  co_return co_await Completion<NotificationSettings>(std::move(ask));
}

Task<NotificationCenter::Added> NotificationManager::add(NotificationRequest request) {
  Completion<NotificationCenter::Added>::Start ask = [this, &request](auto answer) {
    center_.add(std::move(request), std::move(answer));
  };
  co_return co_await Completion<NotificationCenter::Added>(std::move(ask));
}

/// Whether it is one of the texts announced lately, by this run of the program or as the group remembers it.
bool NotificationManager::isDuplicate(std::string_view body) const {
  const std::string said = userText_.comparable(body);
  const auto isTheSame = [&](const std::string& other) { return userText_.comparable(other) == said; };
  if (std::ranges::any_of(recentBodies_, isTheSame)) return true;
  const auto last = recentRoasts_.history().lastNotificationBody;
  return last && isTheSame(*last);
}

NotificationRequest NotificationManager::requestFor(std::string title, std::string body, std::string category) {
  return {.identifier = "roast-" + freshUuid(random_),
          .title = std::move(title),
          .body = std::move(body),
          .categoryIdentifier = categoryIdentifier,
          .userInfo = {{"kind", "roast"}, {"category", std::move(category)}},
          .defaultSound = true,
          .interruptionLevel = InterruptionLevel::active,
          .delay = std::nullopt};
}

void NotificationManager::remember(const std::string& body) {
  recentBodies_.insert(recentBodies_.begin(), body);
  if (recentBodies_.size() > recentBodyLimit) recentBodies_.resize(recentBodyLimit);
  RecentRoastHistory history = recentRoasts_.history();
  history.lastNotificationBody = body;
  recentRoasts_.remember(history);
}

void NotificationManager::showAgainLater() {
  queue_.runAt(queue_.now() + hiddenFor, [&application = application_] {
    application.unhide();
    application.activate(false);
  });
}

}  // namespace quibbly
