#include "terminal_application.h"

#include <utility>

#include "machine/environment.h"
#include "ui/command_titles.h"

namespace quibbly {
namespace {

/// Whether colours are wanted (no-color.org).
bool usesColours() { return environment("NO_COLOR").empty(); }

}  // namespace

TerminalApplication::TerminalApplication(Machine& machine, Session& session, MainQueue& queue,
                                         std::function<void()> failed)
    : failed_(std::move(failed)),
      terminal_(queue, environment("TERM")),
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

void TerminalApplication::start(const std::vector<std::string>& urls) {
  delegate().applicationDidFinishLaunching();
  face_.start([this] { quit(); },
              [this] {
                failed_();
                quit();
              });
  delegate().open(urls);
}

void TerminalApplication::quit() {
  model().stop();
  application_.terminate();
}

std::vector<TerminalFace::Command> TerminalApplication::commands() {
  return {{'r', command_titles::roast, [this] { model().roastMeNow(false, false); }, {}},
          {'n', command_titles::roastAndNotify, [this] { model().roastMeNow(true, true); }, {}},
          {'c', command_titles::copyRoast, [this] { model().copyLastRoast(); },
           [this] { return model().lastRoast->has_value(); }},
          {'p', command_titles::pauseForAnHour, [this] { model().pauseRoasts(anHour); }, {}},
          {'t', command_titles::pauseUntilTomorrow, [this] { model().pauseRoastsUntilTomorrow(); }, {}},
          {'u', command_titles::resume, [this] { model().resumeRoasts(); }, {}},
          {'q', command_titles::quit, [this] { quit(); }, {}}};
}

}  // namespace quibbly
