#include "terminal_application.h"

#include "machine/environment.h"

namespace quibbly {
namespace {

constexpr double anHour = 3600;

/// Whether colours are wanted (no-color.org).
bool usesColours() { return environment("NO_COLOR").empty(); }

}  // namespace

TerminalApplication::TerminalApplication(Machine& machine, Session& session, MainQueue& queue)
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

void TerminalApplication::start(const std::vector<std::string>& urls) {
  delegate().applicationDidFinishLaunching();
  face_.start([this] { quit(); },
              [this] {
                hasFailed_ = true;
                quit();
              });
  delegate().open(urls);
}

void TerminalApplication::quit() {
  model().stop();
  application_.terminate();
}

std::vector<TerminalFace::Command> TerminalApplication::commands() {
  return {{'r', "Roast me again", [this] { model().roastMeNow(false, false); }, {}},
          {'n', "Roast + notify", [this] { model().roastMeNow(true, true); }, {}},
          {'c', "Copy roast", [this] { model().copyLastRoast(); }, [this] { return model().lastRoast->has_value(); }},
          {'p', "Pause for 1 hour", [this] { model().pauseRoasts(anHour); }, {}},
          {'t', "Pause until tomorrow", [this] { model().pauseRoastsUntilTomorrow(); }, {}},
          {'u', "Resume now", [this] { model().resumeRoasts(); }, {}},
          {'q', "Quit quibbly", [this] { quit(); }, {}}};
}

}  // namespace quibbly
