#pragma once

#include <functional>

#include <QDialog>

#include "ui/dashboard_contents.h"
#include "ui/qt/program_version.h"

namespace quibbly {

class FormSection;
class Label;

/// The dashboard: an ordinary window with the mood, the roast, the estimates and the card.
class DashboardView : public QDialog {
 public:
  /// What tells one window of it from another.
  struct Frame {
    const char* title = "";
    QSize atFirst;
    QSize smallest;
  };

  /// `roast` is what the button in the title's row does. The window is in the middle of the screen at first.
  DashboardView(const Frame& frame, const std::function<void()>& roast, const ProgramVersion& version);

  void present(const DashboardContents& contents);

 protected:
  void changeEvent(QEvent* event) override;
  /// Escape closes dialogs, and Enter presses a button of them; this is none to the user.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  FormSection* today_ = nullptr;
  Label* roast_;
  FormSection* estimates_ = nullptr;
};

}  // namespace quibbly
