#include "platform/qt/power_profiles_daemon.h"

#include <algorithm>
#include <chrono>
#include <utility>
#include <vector>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QString>

namespace quibbly::qt_services {
namespace {

using namespace std::chrono_literals;

struct DaemonName {
  const char* service;
  const char* path;
};

constexpr DaemonName daemonNames[] = {
    {"org.freedesktop.UPower.PowerProfiles", "/org/freedesktop/UPower/PowerProfiles"},
    {"net.hadess.PowerProfiles", "/net/hadess/PowerProfiles"},
};

/// A daemon that hangs counts as missing well before the next sample.
constexpr int answerTimeoutMilliseconds = 5000;
/// How often a machine without a bus is looked at again.
constexpr auto reconnectInterval = 1min;

QDBusMessage questionFor(const DaemonName& daemon) {
  QDBusMessage question =
      QDBusMessage::createMethodCall(QString::fromLatin1(daemon.service), QString::fromLatin1(daemon.path),
                                     QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
  question << QString::fromLatin1(daemon.service) << QStringLiteral("ActiveProfile");
  question.setAutoStartService(false);
  return question;
}

}  // namespace

/// One connection, and the questions on their way over it.
class PowerProfilesDaemon::Questions {
 public:
  explicit Questions(QString address) : address_(std::move(address)) {}
  Questions(const Questions&) = delete;
  Questions& operator=(const Questions&) = delete;
  ~Questions() { QDBusConnection::disconnectFromBus(name_); }

  std::optional<bool> lastAnswer() {
    if (!onTheirWay()) {
      answer_ = answered();
      ask();
    }
    return answer_;
  }

 private:
  [[nodiscard]] bool onTheirWay() const {
    return std::ranges::any_of(pending_, [](const QDBusPendingCall& call) { return !call.isFinished(); });
  }

  [[nodiscard]] std::optional<bool> answered() const {
    for (const QDBusPendingReply<QDBusVariant> reply : pending_) {
      if (reply.isError()) continue;
      const QVariant profile = reply.value().variant();
      if (profile.typeId() == QMetaType::QString) return profile.toString() == QLatin1String("power-saver");
    }
    return std::nullopt;
  }

  void ask() {
    pending_.clear();
    if (!connect()) return;
    for (const DaemonName& daemon : daemonNames) {
      pending_.push_back(bus_.asyncCall(questionFor(daemon), answerTimeoutMilliseconds));
    }
  }

  bool connect() {
    if (bus_.isConnected()) return true;
    const auto now = std::chrono::steady_clock::now();
    if (now < nextAttempt_) return false;
    nextAttempt_ = now + reconnectInterval;
    QDBusConnection::disconnectFromBus(name_);
    bus_ = address_.isEmpty() ? QDBusConnection::connectToBus(QDBusConnection::SystemBus, name_)
                              : QDBusConnection::connectToBus(address_, name_);
    return bus_.isConnected();
  }

  QString address_;
  const QString name_ = QStringLiteral("quibbly-power-profiles");
  QDBusConnection bus_{QString()};
  std::chrono::steady_clock::time_point nextAttempt_;
  std::vector<QDBusPendingCall> pending_;
  std::optional<bool> answer_;
};

PowerProfilesDaemon::PowerProfilesDaemon(std::string busAddress)
    : questions_(std::make_unique<Questions>(QString::fromStdString(busAddress))) {}
PowerProfilesDaemon::~PowerProfilesDaemon() = default;

std::optional<bool> PowerProfilesDaemon::enabled() { return questions_->lastAnswer(); }

}  // namespace quibbly::qt_services
