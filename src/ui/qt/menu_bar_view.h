#pragma once

#include <functional>
#include <vector>

#include <QDialog>

#include "ui/panel_contents.h"

class QGridLayout;
class QVBoxLayout;

namespace quibbly {

class CommandButton;
class Label;

/// The panel under the tray icon, as a window without a frame. Closes on Escape and when another window gets the keyboard.
class MenuBarView : public QDialog {
 public:
  struct Commands {
    std::function<void()> roast;
    std::function<void()> roastAndNotify;
    std::function<void()> copyRoast;
    std::function<void()> openDashboard;
    std::function<void()> openSettings;
    std::function<void()> quit;
  };

  explicit MenuBarView(const Commands& commands);

  /// Shows what changed, and leaves alone what did not: a selection in the roast stays.
  void update(const PanelContents& contents);

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fit();
  void addRoast(QVBoxLayout& layout);
  void addCommands(QVBoxLayout& layout, const Commands& commands);
  void showRows(const std::vector<PanelContents::Row>& rows);
  void showFooter(const std::vector<PanelContents::FooterLine>& lines);

  Label* heading_;
  Label* collecting_;
  QWidget* rows_;
  QGridLayout* grid_;
  std::vector<std::pair<Label*, Label*>> rowLabels_;
  QWidget* roastArea_ = nullptr;
  Label* roast_ = nullptr;
  std::vector<Label*> footer_;
  Label* status_;
  CommandButton* copy_ = nullptr;
};

}  // namespace quibbly
