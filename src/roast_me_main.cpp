// The roast-me intent as a program of its own, for widgets to run.

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <span>
#include <string_view>
#include <unistd.h>

#include <QCoreApplication>

#include "commands/complaint.h"
#include "commands/roast_me_words.h"
#include "engine/placeholder_roast_engine.h"
#include "machine/machine.h"
#include "machine/session.h"
#include "platform/launched_tasks.h"
#include "platform/linux/standard_streams.h"
#include "platform/qt/qt_main_queue.h"
#include "shared/roast_me_intent.h"

namespace {

using namespace quibbly;
using namespace quibbly::linux_services;

Task<> performThenQuit(RoastMeIntent& intent, LastRoast& roast) {
  roast = co_await intent.perform();
  QCoreApplication::quit();
}

LastRoast performIntent(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  qt_services::QtMainQueue queue;
  Machine machine;
  Session session(queue);
  const SharedStorage storage(machine.container(), machine.files(), machine.random());
  const RecentRoasts recentRoasts(storage);
  AppGroupStore store(storage, machine.groupPreferences(), machine.clock(), machine.random(), machine.userText());
  const PlaceholderRoastEngine engine(machine.clock(), machine.random());
  PendingNotifyQueue notifications(storage, machine.files(), session.crossProcess(), machine.clock());
  WidgetReload widgets(session.widgets(), machine.groupPreferences());
  RoastMeIntent intent(recentRoasts, store, engine, notifications, widgets, machine.clock());

  LastRoast roast;
  launch(queue, performThenQuit(intent, roast));
  QCoreApplication::exec();
  return roast;
}

int run(int argc, char** argv) {
  const std::span<char*> all(argv, static_cast<std::size_t>(argc));
  const auto words = parseRoastMeWords({all.begin() + std::min(argc, 1), all.end()});
  if (!words) {
    complain(words.error());
    return Complaint::badCommandLine;
  }
  if (!words->text.empty()) return printOrComplain(words->text) ? 0 : Complaint::failed;
  const LastRoast roast = performIntent(argc, argv);
  return !words->verbose || printOrComplain(roast.text + "\n") ? 0 : Complaint::failed;
}

}  // namespace

int main(int argc, char** argv) {
  prepareStandardStreams("quibbly-roast-me");
  // A machine without memory makes no roast, and the widget that asked for one can do nothing about it.
  std::set_terminate([] {
    constexpr std::string_view why =
        "quibbly-roast-me: no roast was made, for lack of memory or by a fault of its own\n";
    (void)!::write(STDERR_FILENO, why.data(), why.size());
    std::_Exit(0);
  });
  return run(argc, argv);
}
