#include "run_application.h"

#include <optional>
#include <utility>

#include <QCoreApplication>

#include "app/app_url.h"
#include "application_core.h"
#include "commands/complaint.h"
#include "machine/environment.h"
#include "machine/machine.h"
#include "machine/session.h"
#include "platform/linux/posix_terminal.h"
#include "platform/linux/standard_streams.h"
#include "platform/qt/headless_application.h"
#include "platform/qt/qt_main_queue.h"
#include "ui/terminal_face.h"
#include "ui/terminal_pasteboard.h"

namespace quibbly {
namespace {

using namespace linux_services;
using namespace qt_services;

constexpr double anHour = 3600;

/// Whether colours are wanted (no-color.org).
bool usesColours() { return environment("NO_COLOR").empty(); }

/// quibbly on a terminal.
class TerminalApplication {
 public:
  TerminalApplication(Machine& machine, Session& session, MainQueue& queue)
      : terminal_(queue, environment("TERM")),
        toasts_(queue),
        pasteboard_(terminal_),
        application_(queue),
        core_(machine, session, queue, {.application = application_, .pasteboard = pasteboard_, .toasts = toasts_}),
        face_({.queue = queue,
               .terminal = terminal_,
               .toasts = toasts_,
               .userText = machine.userText(),
               .state = [this] { return PanelState::of(model()); },
               .usesColours = usesColours()},
              commands()),
        changes_(model().observe([this] { face_.changed(); })) {}

  void start(const std::vector<std::string>& urls) {
    delegate().applicationDidFinishLaunching();
    face_.start([this] { quit(); },
                [this] {
                  hasFailed_ = true;
                  quit();
                });
    delegate().open(urls);
  }

  [[nodiscard]] AppDelegate& delegate() { return core_.app.appDelegate; }
  /// Whether the output could not be written.
  [[nodiscard]] bool hasFailed() const { return hasFailed_; }

 private:
  AppModel& model() { return *core_.app.appModel; }

  void quit() {
    model().stop();
    application_.terminate();
  }

  std::vector<TerminalFace::Command> commands() {
    return {{'r', "Roast me again", [this] { model().roastMeNow(false, false); }, {}},
            {'n', "Roast + notify", [this] { model().roastMeNow(true, true); }, {}},
            {'c', "Copy roast", [this] { model().copyLastRoast(); }, [this] { return model().lastRoast->has_value(); }},
            {'p', "Pause for 1 hour", [this] { model().pauseRoasts(anHour); }, {}},
            {'t', "Pause until tomorrow", [this] { model().pauseRoastsUntilTomorrow(); }, {}},
            {'u', "Resume now", [this] { model().resumeRoasts(); }, {}},
            {'q', "Quit quibbly", [this] { quit(); }, {}}};
  }

  PosixTerminal terminal_;
  TerminalBannerScreen toasts_;
  TerminalPasteboard pasteboard_;
  HeadlessApplication application_;
  ApplicationCore core_;
  TerminalFace face_;
  Observers::Token changes_;
  bool hasFailed_ = false;
};

/// One start of the program, from the question whether it is the first to its end.
class Run {
 public:
  explicit Run(const CommandLine& request) : session_(queue_), request_(request) {}
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;
  ~Run() {
    // Tasks hold the model, which uses everything that goes next.
    queue_.tasks().drop();
  }

  int untilTheEnd() {
    session_.instance().claim({.activate = [this] { application_->delegate().applicationShouldHandleReopen(false); },
                               .open = [this](const auto& urls) { application_->delegate().open(urls); },
                               .action = [this](const auto& action) { act(action); }},
                              request_.urls, [this](SingleInstance::Place place) { begin(place); });
    const int status = QCoreApplication::exec();
    return application_ && application_->hasFailed() ? cannotWrite() : status;
  }

 private:
  void begin(SingleInstance::Place place) {
    switch (place) {
      case SingleInstance::Place::first:
        application_.emplace(machine_, session_, queue_).start(request_.urls);
        break;
      case SingleInstance::Place::handedOver:
        QCoreApplication::exit(handedOver());
        break;
      case SingleInstance::Place::refused:
        complain("another quibbly is running for this user and does not answer; end that one first");
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
    if (application_ && action == "RoastMe") application_->delegate().open({AppURL::roast});
  }

  // The queue goes last: a sample that is under way when the program ends is answered on it.
  QtMainQueue queue_;
  Machine machine_;
  Session session_;
  const CommandLine& request_;
  std::optional<TerminalApplication> application_;
};

}  // namespace

int runApplication(int argc, char** argv, const CommandLine& request) {
  blockTerminalSignals();
  const QCoreApplication application(argc, argv);
  return Run(request).untilTheEnd();
}

}  // namespace quibbly
