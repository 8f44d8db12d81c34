#pragma once

#include <functional>
#include <vector>

#include "application_core.h"
#include "faced_application.h"
#include "platform/linux/posix_terminal.h"
#include "platform/qt/headless_application.h"
#include "ui/terminal_face.h"
#include "ui/terminal_pasteboard.h"

namespace quibbly {

/// quibbly on a terminal.
class TerminalApplication final : public FacedApplication {
 public:
  /// `failed` is called before the application ends because its output cannot be written.
  TerminalApplication(Machine& machine, Session& session, MainQueue& queue, std::function<void()> failed);

  void start(const std::vector<std::string>& urls) override;
  void reopen() override { delegate().applicationShouldHandleReopen(false); }
  [[nodiscard]] AppDelegate& delegate() override { return core_.app.appDelegate; }

 private:
  AppModel& model() { return *core_.app.appModel; }
  void quit();
  std::vector<TerminalFace::Command> commands();

  std::function<void()> failed_;
  linux_services::PosixTerminal terminal_;
  TerminalBannerScreen toasts_;
  TerminalPasteboard pasteboard_;
  qt_services::HeadlessApplication application_;
  ApplicationCore core_;
  TerminalFace face_;
  Observers::Token changes_;
};

}  // namespace quibbly
