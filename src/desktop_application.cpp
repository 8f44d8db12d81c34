#include "desktop_application.h"

#include "ui/qt/widgets/colours.h"

namespace quibbly {

using namespace linux_services;

DesktopApplication::DesktopApplication(Machine& machine, Session& session, MainQueue& queue)
    : session_(session),
      application_(queue),
      core_(machine, session, queue, {.application = application_, .pasteboard = pasteboard_, .toasts = toasts_}),
      settings_(model(), core_.preferences, core_.notifications, core_.storage),
      face_({.queue = queue,
             .trayHost = session.trayHost(),
             .application = application_,
             .settings = settings_,
             .quit = [this] { quit(); },
             .version = {}},
            model()),
      signals_(queue, {endingSignals}, [this](int) { quit(); }),
      changes_(model().observe([this] { face_.changed(); })),
      settingsChanges_(settings_.observe([this] { face_.changed(); })) {
  application_.onBecomeActive([this] { delegate().applicationDidBecomeActive(); });
}

void DesktopApplication::start(const std::vector<std::string>& urls) {
  face_.start();
  session_.appearance().observe([](std::optional<Appearance> preferred) { setAppearance(preferred); });
  delegate().applicationDidFinishLaunching();
  delegate().open(urls);
}

void DesktopApplication::reopen() {
  const bool hasWindows = application_.hasVisibleWindows();
  if (delegate().applicationShouldHandleReopen(hasWindows) && !hasWindows) face_.reopen();
}

void DesktopApplication::quit() {
  model().stop();
  application_.terminate();
}

}  // namespace quibbly
