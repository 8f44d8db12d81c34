#pragma once

#include <memory>

#include <QObject>

#include "ui/qt/dashboard_view.h"
#include "ui/qt/windowed_application.h"

namespace quibbly {

class AppModel;

/// The dashboard that the panel opens: made when it is first asked for, and kept when it is closed. While it is open the
/// program is a regular application; closed, the decision is the preference's again. Main thread.
class DashboardWindowController : public QObject {
 public:
  DashboardWindowController(WindowedApplication& application, ProgramVersion version);

  void show(AppModel& model);
  /// Null before the first `show`.
  [[nodiscard]] DashboardView* window() const { return window_.get(); }

 protected:
  bool eventFilter(QObject* window, QEvent* event) override;

 private:
  WindowedApplication& application_;
  ProgramVersion version_;
  std::unique_ptr<DashboardView> window_;
  std::shared_ptr<void> isOpen_;  // keeps the program regular
};

}  // namespace quibbly
