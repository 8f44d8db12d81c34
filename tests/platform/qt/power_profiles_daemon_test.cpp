#include "platform/qt/power_profiles_daemon.h"

#include <chrono>
#include <thread>
#include <utility>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>
#include <QVariant>
#include <gtest/gtest.h>

namespace quibbly::qt_services {
namespace {

using namespace std::chrono_literals;

/// A message bus of the test's own, gone with the test.
class PrivateBus {
 public:
  PrivateBus() {
    daemon_.start("dbus-daemon", {"--session", "--nofork", "--print-address=1"});
    daemon_.waitForReadyRead();
    address_ = QString::fromUtf8(daemon_.readLine()).trimmed();
  }
  PrivateBus(const PrivateBus&) = delete;
  PrivateBus& operator=(const PrivateBus&) = delete;
  ~PrivateBus() {
    daemon_.kill();
    daemon_.waitForFinished();
  }
  [[nodiscard]] const QString& address() const { return address_; }

 private:
  QProcess daemon_;
  QString address_;
};

/// Answers the question for the profile with a given value; without one it never answers.
class ProfilesObject : public QDBusVirtualObject {
 public:
  ProfilesObject(QString service, QVariant profile) : service_(std::move(service)), profile_(std::move(profile)) {}
  [[nodiscard]] QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    if (profile_.isValid() && message.arguments() == QVariantList{service_, "ActiveProfile"}) {
      connection.send(message.createReply(QVariant::fromValue(QDBusVariant(profile_))));
    }
    return true;
  }

 private:
  QString service_;
  QVariant profile_;
};

/// A profiles daemon on the bus, served on a thread of its own.
class ProfilesDaemon {
 public:
  ProfilesDaemon(const QString& address, const QString& service, const QString& path, QVariant profile)
      : object_(service, std::move(profile)), connection_(QDBusConnection::connectToBus(address, service)) {
    object_.moveToThread(&thread_);
    thread_.start();
    connection_.registerVirtualObject(path, &object_, QDBusConnection::SingleNode);
    connection_.registerService(service);
  }
  ProfilesDaemon(const ProfilesDaemon&) = delete;
  ProfilesDaemon& operator=(const ProfilesDaemon&) = delete;
  ~ProfilesDaemon() {
    QDBusConnection::disconnectFromBus(connection_.name());
    thread_.quit();
    thread_.wait();
  }

 private:
  QThread thread_;
  ProfilesObject object_;
  QDBusConnection connection_;
};

class PowerProfiles : public ::testing::Test {
 protected:
  static constexpr auto present = "org.freedesktop.UPower.PowerProfiles";
  static constexpr auto presentPath = "/org/freedesktop/UPower/PowerProfiles";
  static constexpr auto older = "net.hadess.PowerProfiles";
  static constexpr auto olderPath = "/net/hadess/PowerProfiles";

  /// Puts the question, gives the bus time, and collects the answer; absent also when none comes.
  std::optional<bool> ask() {
    PowerProfilesDaemon daemon(bus_.address().toStdString());
    std::optional<bool> answer = daemon.enabled();
    for (QDeadlineTimer limit(answerLimit_); !answer && !limit.hasExpired(); answer = daemon.enabled()) {
      std::this_thread::yield();
    }
    return answer;
  }

  PrivateBus bus_;
  std::chrono::milliseconds answerLimit_{2000};
};

TEST_F(PowerProfiles, power_saver_is_low_power_and_any_other_profile_is_not) {
  const std::pair<QVariant, std::optional<bool>> cases[] = {{"power-saver", true}, {"balanced", false}, {"", false}};
  for (const auto& [profile, expected] : cases) {
    const ProfilesDaemon daemon(bus_.address(), present, presentPath, profile);
    EXPECT_EQ(ask(), expected) << profile.toString().toStdString();
  }
}

TEST_F(PowerProfiles, the_older_name_is_asked_when_the_present_one_is_missing) {
  const ProfilesDaemon daemon(bus_.address(), older, olderPath, "power-saver");
  EXPECT_EQ(ask(), true);
}

TEST_F(PowerProfiles, asking_never_waits_for_a_daemon_that_hangs) {
  const ProfilesDaemon hanging(bus_.address(), present, presentPath, {});
  PowerProfilesDaemon daemon(bus_.address().toStdString());
  // Without an answer the second question would have to wait for seconds, and a third one behind it.
  QElapsedTimer elapsed;
  elapsed.start();
  for (int i = 0; i < 3; ++i) EXPECT_EQ(daemon.enabled(), std::nullopt);
  EXPECT_LT(elapsed.elapsed(), 4000);
}

TEST_F(PowerProfiles, nobody_knows_without_a_daemon_or_without_a_bus) {
  answerLimit_ = 100ms;
  EXPECT_EQ(ask(), std::nullopt);
  PowerProfilesDaemon busless("unix:path=/nonexistent");
  for (int i = 0; i < 3; ++i) EXPECT_EQ(busless.enabled(), std::nullopt);
}

}  // namespace
}  // namespace quibbly::qt_services

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  const QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
