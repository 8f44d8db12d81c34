#include "run_application.h"

#include <array>
#include <memory>
#include <string>
#include <unistd.h>
#include <utility>

#include <QApplication>

#include "app/app_url.h"
#include "commands/complaint.h"
#include "desktop_application.h"
#include "display.h"
#include "machine/machine.h"
#include "machine/session.h"
#include "platform/linux/own_names.h"
#include "platform/linux/signal_watch.h"
#include "platform/linux/standard_streams.h"
#include "platform/qt/qt_main_queue.h"
#include "terminal_application.h"

namespace quibbly {
namespace {

using namespace linux_services;
using namespace qt_services;

/// One start of the program, from the question whether it is the first to its end.
class Run {
 public:
  Run(const CommandLine& request, Display display)
      : session_(queue_, std::move(display.x)), request_(request), hasDisplay_(!display.platform.empty()) {}
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;
  ~Run() {
    // Tasks hold the model, which uses everything that goes next.
    queue_.tasks().drop();
  }

  int untilTheEnd() {
    session_.instance().claim({.activate = [this] { application_->reopen(); },
                               .open = [this](const auto& urls) { application_->delegate().open(urls); },
                               .action = [this](const auto& action) { act(action); }},
                              request_.urls, [this](SingleInstance::Place place) { begin(place); });
    const int status = QCoreApplication::exec();
    return isOutputLost_ ? cannotWrite() : status;
  }

 private:
  std::unique_ptr<FacedApplication> application() {
    if (hasDisplay_) return std::make_unique<DesktopApplication>(machine_, session_, queue_);
    return std::make_unique<TerminalApplication>(machine_, session_, queue_, [this] { isOutputLost_ = true; });
  }

  void begin(SingleInstance::Place place) {
    switch (place) {
      case SingleInstance::Place::first:
        application_ = application();
        application_->start(request_.urls);
        break;
      case SingleInstance::Place::handedOver:
        QCoreApplication::exit(handedOver());
        break;
      case SingleInstance::Place::refused:
        complain("another quibbly is running for this user and did not take this; try again, or end that one first");
        QCoreApplication::exit(Complaint::failed);
        break;
    }
  }

  [[nodiscard]] int handedOver() const {
    if (!request_.urls.empty()) return 0;
    return printOrComplain("quibbly is running already; it was asked to come forward.\n") ? 0 : Complaint::failed;
  }

  static int cannotWrite() {
    complain("cannot write to standard output any more");
    return Complaint::failed;
  }

  void act(const std::string& action) {
    if (action == "RoastMe") application_->delegate().open({AppURL::roast});
  }

  // The queue goes last: a sample that is under way when the program ends is answered on it.
  QtMainQueue queue_;
  Machine machine_;
  Session session_;
  const CommandLine& request_;
  bool hasDisplay_;
  bool isOutputLost_ = false;
  std::unique_ptr<FacedApplication> application_;
};

void complainForQt(QtMsgType kind, const QMessageLogContext& /*context*/, const QString& text) {
  if (kind == QtDebugMsg || kind == QtInfoMsg) return;
  complain(text.toStdString());
  // Qt says so, whoever finds it out, and ends the program next; Xlib would say it once more on the way.
  if (text.startsWith("The X11 connection broke")) ::_exit(Complaint::failed);
}

/// The command line as Qt reads it, which names the platform there: the environment is for the programs that quibbly starts,
/// too. Must outlive the application.
struct QtCommandLine {
  QtCommandLine(char* program, std::string platformName) : platform(std::move(platformName)) { words[0] = program; }
  QtCommandLine(const QtCommandLine&) = delete;
  QtCommandLine& operator=(const QtCommandLine&) = delete;
  ~QtCommandLine() = default;

  std::string option = "-platform";
  std::string platform;
  std::array<char*, 4> words{nullptr, option.data(), platform.data(), nullptr};
  int count = 3;
};

/// A desktop's program does without the terminal that it may have been started on.
std::unique_ptr<QCoreApplication> newQApplication(QtCommandLine& line) {
  letThrough(terminalSignals);
  (void)qInstallMessageHandler(complainForQt);
  auto application = std::make_unique<QApplication>(line.count, line.words.data());
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setDesktopFileName(ownDesktopId);
  return application;
}

}  // namespace

int runApplication(int argc, char** argv, const CommandLine& request) {
  // A display that does not answer can be waited for no more than the user wants to.
  Display display = request.terminal ? Display{} : findDisplay();
  holdBack(endingSignals);
  holdBack(terminalSignals);
  QCoreApplication::setApplicationName("quibbly");
  QtCommandLine line(*argv, display.platform);
  std::unique_ptr<QCoreApplication> application;
  if (display.platform.empty()) {
    application = std::make_unique<QCoreApplication>(argc, argv);
  } else {
    application = newQApplication(line);
  }
  return Run(request, std::move(display)).untilTheEnd();
}

}  // namespace quibbly
