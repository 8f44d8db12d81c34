#include "platform/qt/qt_main_queue.h"

#include <cstdint>
#include <ctime>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <sys/timerfd.h>
#include <unistd.h>
#include <utility>

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QSocketNotifier>

#include "platform/timed_work.h"

namespace quibbly::qt_services {
namespace {

ContinuousClock::time_point bootTime() {
  timespec time{};
  (void)::clock_gettime(CLOCK_BOOTTIME, &time);
  return ContinuousClock::time_point(std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec));
}

itimerspec oneShotAt(ContinuousClock::time_point moment) {
  const auto sinceBoot = moment.time_since_epoch();
  const auto seconds = std::chrono::floor<std::chrono::seconds>(sinceBoot);
  itimerspec setting{};
  setting.it_value.tv_sec = seconds.count();
  setting.it_value.tv_nsec = (sinceBoot - seconds).count();
  // A value of zero would disarm the timer.
  if (sinceBoot.count() <= 0) setting.it_value = {.tv_sec = 0, .tv_nsec = 1};
  return setting;
}

}  // namespace

/// Receives the events that wake the queue. Posted work is taken a turn at a time, so that work which posts work cannot
/// keep the event loop from everything else.
class QtMainQueue::Loop : public QObject {
 public:
  Loop()
      : timer_(::timerfd_create(CLOCK_BOOTTIME, TFD_NONBLOCK | TFD_CLOEXEC)), notifier_(timer_, QSocketNotifier::Read) {
    QObject::connect(&notifier_, &QSocketNotifier::activated, this, [this] { runDue(); });
  }
  Loop(const Loop&) = delete;
  Loop& operator=(const Loop&) = delete;
  ~Loop() override { ::close(timer_); }

  void post(Work work) {
    const std::lock_guard lock(mutex_);
    posted_.push_back(std::move(work));
    // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the event loop owns its events
    if (posted_.size() == 1) QCoreApplication::postEvent(this, new QEvent(QEvent::User));
  }

  TimerId runAt(ContinuousClock::time_point deadline, Work work) {
    const TimerId timer = timed_.add(deadline, std::move(work));
    arm();
    return timer;
  }

  void cancel(TimerId timer) {
    timed_.cancel(timer);
    arm();
  }

  void watch(int descriptor, std::function<void()> work) {
    auto watcher = std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read);
    QObject::connect(watcher.get(), &QSocketNotifier::activated, this, [work = std::move(work)] { work(); });
    watchers_.insert_or_assign(descriptor, std::move(watcher));
  }

  void unwatch(int descriptor) {
    const auto found = watchers_.find(descriptor);
    if (found == watchers_.end()) return;
    found->second->setEnabled(false);
    // It may be the one that calls: it goes with the next turn.
    post([gone = std::move(found->second)] {});
    watchers_.erase(found);
  }

  /// What goes may own what posts, schedules and cancels.
  void drop() {
    for (bool isLeft = true; isLeft;) {
      std::unique_lock lock(mutex_);
      const auto posted = std::exchange(posted_, {});
      lock.unlock();
      const auto timed = timed_.takeDue(ContinuousClock::time_point::max());
      isLeft = !posted.empty() || timed;
    }
  }

 protected:
  void customEvent(QEvent*) override {
    std::unique_lock lock(mutex_);
    auto turn = std::exchange(posted_, {});
    lock.unlock();
    for (Work& work : turn) work();
  }

 private:
  void runDue() {
    std::uint64_t expirations = 0;
    [[maybe_unused]] const ssize_t got = ::read(timer_, &expirations, sizeof expirations);
    armed_.reset();
    // Only what was due on waking: a loop that schedules itself at once gets its turn after everybody else's.
    const auto now = bootTime();
    isRunningDue_ = true;
    while (auto work = timed_.takeDue(now)) (*work)();
    isRunningDue_ = false;
    arm();
  }

  /// Once for all that is due: work that comes again cancels and schedules.
  void arm() {
    if (isRunningDue_) return;
    const auto next = timed_.nextDeadline();
    if (next == armed_) return;
    armed_ = next;
    const itimerspec setting = next ? oneShotAt(*next) : itimerspec{};
    (void)::timerfd_settime(timer_, TFD_TIMER_ABSTIME, &setting, nullptr);
  }

  int timer_;
  QSocketNotifier notifier_;
  std::map<int, std::unique_ptr<QSocketNotifier>> watchers_;
  TimedWork timed_;
  std::optional<ContinuousClock::time_point> armed_;
  bool isRunningDue_ = false;
  std::mutex mutex_;
  std::deque<Work> posted_;
};

QtMainQueue::QtMainQueue() : loop_(std::make_unique<Loop>()) {}
QtMainQueue::~QtMainQueue() {
  dropTasks();
  loop_->drop();
}

void QtMainQueue::post(Work work) { loop_->post(std::move(work)); }
MainQueue::TimerId QtMainQueue::runAt(ContinuousClock::time_point deadline, Work work) {
  return loop_->runAt(deadline, std::move(work));
}
void QtMainQueue::cancel(TimerId timer) { loop_->cancel(timer); }
void QtMainQueue::watch(int descriptor, std::function<void()> work) { loop_->watch(descriptor, std::move(work)); }
void QtMainQueue::unwatch(int descriptor) { loop_->unwatch(descriptor); }
ContinuousClock::time_point QtMainQueue::now() const { return bootTime(); }

}  // namespace quibbly::qt_services
