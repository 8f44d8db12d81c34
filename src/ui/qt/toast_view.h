#pragma once

#include <QDialog>

#include "notify/banner_screen.h"
#include "ui/qt/widgets/floating_look.h"

namespace quibbly {

/// The toast as a window: without frame, above everything, on all workspaces; it never takes the keyboard.
class ToastView : public QDialog {
 public:
  ToastView(const BannerView& view, Surface surface);

  /// Where the toast is, less its shadow. Large type makes it taller.
  void place(const BannerFrame& frame);

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void fit();

  FloatingLook look_;
  BannerFrame frame_;
};

}  // namespace quibbly
