#pragma once

#include <QLabel>

#include "ui/qt/program_version.h"
#include "ui/qt/widgets/follows_font.h"

namespace quibbly {

/// The card with the program's artwork, name and version.
class AboutView : public FollowsFont<QLabel> {
 public:
  /// The smaller variant, or the full one.
  enum class Variant { compact, full };

  /// Room around the card, for its shadow. A form insets what it shows by `GroupedForm::overhang`, and the card by as much
  /// again.
  static constexpr int shadowRoom = 16;

  /// With a card of this height; it is as wide as there is room.
  AboutView(Variant variant, int cardHeight, const ProgramVersion& program, QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void followFont() override { update(); }

 private:
  struct Sizes;

  void paintCard(QPainter& painter, const QRectF& card) const;
  void paintText(QPainter& painter, const QRectF& area) const;

  Variant variant_;
  QString versionText_;
};

}  // namespace quibbly
