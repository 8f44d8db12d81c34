#pragma once

#include "application_core.h"
#include "faced_application.h"
#include "platform/linux/signal_watch.h"
#include "ui/qt/desktop_face.h"
#include "ui/qt/qt_pasteboard.h"
#include "ui/qt/toast_screen.h"
#include "ui/qt/windowed_application.h"
#include "ui/settings_form.h"

namespace quibbly {

/// quibbly on a desktop.
class DesktopApplication final : public FacedApplication {
 public:
  DesktopApplication(Machine& machine, Session& session, MainQueue& queue);

  void start(const std::vector<std::string>& urls) override;
  void reopen() override;
  [[nodiscard]] AppDelegate& delegate() override { return core_.app.appDelegate; }

 private:
  AppModel& model() { return *core_.app.appModel; }
  void quit();

  Session& session_;
  ToastScreen toasts_;
  QtPasteboard pasteboard_;
  WindowedApplication application_;
  ApplicationCore core_;
  SettingsForm settings_;
  DesktopFace face_;
  linux_services::SignalWatch signals_;
  Observers::Token changes_;
  Observers::Token settingsChanges_;
};

}  // namespace quibbly
