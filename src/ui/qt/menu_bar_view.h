#pragma once

#include <functional>
#include <utility>

#include <QDialog>

#include "ui/panel_contents.h"
#include "ui/qt/widgets/floating_look.h"

class QVBoxLayout;

namespace quibbly {

class CommandButton;
class PanelBody;

/// The panel of the tray icon.
class MenuBarView : public QDialog {
 public:
  /// A panel has no frame, and closes on Escape and when another window gets the keyboard. Where there is no icon to open it
  /// by, it is an ordinary window, which is minimised when the user closes it.
  enum class Style { panel, window };

  struct Commands {
    std::function<void()> roast;
    std::function<void()> roastAndNotify;
    std::function<void()> copyRoast;
    std::function<void()> openDashboard;
    std::function<void()> openSettings;
    std::function<void()> quit;
  };

  MenuBarView(Style style, Surface surface, const Commands& commands);

  [[nodiscard]] Surface surface() const { return look_.surface(); }

  /// Shows what changed, and leaves alone what did not: a selection in the roast stays.
  void present(const PanelContents& contents);
  /// Called when the panel has another size.
  void onResize(std::function<void()> resized) { resized_ = std::move(resized); }
  /// Without the shadow around it.
  [[nodiscard]] QSize groundSize() const;
  void moveGround(const QPoint& position);

  void reject() override;

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void fit();
  [[nodiscard]] int roomAround() const;
  void addCommands(const Commands& commands);

  Style style_;
  std::function<void()> resized_;
  FloatingLook look_;
  QVBoxLayout* outside_;
  PanelBody* body_;
  CommandButton* copy_ = nullptr;
};

}  // namespace quibbly
