#include "ui/qt/about_view.h"

#include <QEvent>
#include <QLinearGradient>
#include <QPainter>
#include <QStyle>

#include "ui/qt/artwork.h"
#include "ui/qt/widgets/fonts.h"
#include "ui/qt/widgets/shadow.h"
#include "ui/qt/widgets/smooth_rect.h"
#include "ui/qt/widgets/text.h"

namespace quibbly {

struct AboutView::Sizes {
  double cardRadius;
  double padding;
  double spacing;
  double logoSide;
  double logoRadius;
  FontRole name;

  static const Sizes& of(Variant variant) {
    static constexpr Sizes compact{12, 14, 12, 64, 14, FontRole::title3};
    static constexpr Sizes full{16, 20, 16, 88, 18, FontRole::title2};
    return variant == Variant::compact ? compact : full;
  }
};

namespace {

constexpr double betweenLines = 4;
constexpr const char* tagLine = "Comedy, not diagnostics.\nYour Mac has opinions.";
constexpr Shadow cardShadow{.opacity = 0.25, .blur = 12, .down = 4};
constexpr Shadow logoShadow{.opacity = 0.45, .blur = 8, .down = 3};

QColor whiteAt(double opacity) { return QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity)); }
QColor blackAt(double opacity) { return QColor::fromRgbF(0, 0, 0, static_cast<float>(opacity)); }

void paintOutline(QPainter& painter, const QRectF& area, double radius, double opacity) {
  painter.strokePath(smoothRect(area.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5), QPen(whiteAt(opacity), 1));
}

}  // namespace

AboutView::AboutView(Variant variant, int cardHeight, const ProgramVersion& program, QWidget* parent)
    : FollowsFont(parent),
      variant_(variant),
      versionText_(qtText("Version " + program.version + " (" + program.build + ")")) {
  setAccessibleName(qtText("quibbly version " + program.version + ". Comedy, not diagnostics."));
  setFocusPolicy(Qt::NoFocus);
  setFixedHeight(cardHeight + 2 * shadowRoom);
}

void AboutView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const Sizes& sizes = Sizes::of(variant_);
  const QRectF card = QRectF(rect()).adjusted(shadowRoom, shadowRoom, -shadowRoom, -shadowRoom);
  paintShadow(painter, card, sizes.cardRadius, cardShadow);
  painter.save();
  painter.setClipPath(smoothRect(card, sizes.cardRadius));
  paintCard(painter, card);
  painter.restore();
  paintOutline(painter, card, sizes.cardRadius, 0.12);
}

void AboutView::paintCard(QPainter& painter, const QRectF& card) const {
  const Sizes& sizes = Sizes::of(variant_);
  artwork::paintAboutBackground(painter, card);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  QLinearGradient shade(isMirrored ? card.topRight() : card.topLeft(),
                        isMirrored ? card.bottomLeft() : card.bottomRight());
  shade.setColorAt(0, blackAt(0.55));
  shade.setColorAt(1.0 / 3, blackAt(0.15));
  shade.setColorAt(2.0 / 3, blackAt(0));
  shade.setColorAt(1, blackAt(0.65));
  painter.fillRect(card, shade);
  const QRectF content = card.adjusted(sizes.padding, sizes.padding, -sizes.padding, -sizes.padding);
  const QRectF logo(isMirrored ? content.right() - sizes.logoSide : content.left(), content.bottom() - sizes.logoSide,
                    sizes.logoSide, sizes.logoSide);
  paintShadow(painter, logo, sizes.logoRadius, logoShadow);
  painter.save();
  painter.setClipPath(smoothRect(logo, sizes.logoRadius), Qt::IntersectClip);
  artwork::paintLogo(painter, logo);
  painter.restore();
  paintOutline(painter, logo, sizes.logoRadius, 0.25);
  const double beside = sizes.logoSide + sizes.spacing;
  paintText(painter, content.adjusted(isMirrored ? 0 : beside, 0, isMirrored ? -beside : 0, 0));
}

/// From the bottom line up, so that the text stands on the same ground as the logo.
void AboutView::paintText(QPainter& painter, const QRectF& area) const {
  QFont name = fontOf(Sizes::of(variant_).name);
  name.setBold(true);
  QFont version = fontOf(FontRole::caption);
  version.setWeight(QFont::Medium);
  const struct {
    QString text;
    QFont font;
    double opacity;
  } lines[] = {{tagLine, fontOf(FontRole::caption), 0.80}, {versionText_, version, 0.85}, {"quibbly", name, 1}};
  QRectF room = area;
  for (const auto& [text, font, opacity] : lines) {
    painter.setFont(font);
    painter.setPen(whiteAt(opacity));
    constexpr int flags = Qt::AlignLeading | Qt::AlignBottom | Qt::TextWordWrap;
    const int mirrored = static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading)) |
                         (flags & ~static_cast<int>(Qt::AlignLeading));
    QRectF taken;
    painter.drawText(room, mirrored, text, &taken);
    room.setBottom(taken.top() - betweenLines);
  }
}

void AboutView::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  update();
}

}  // namespace quibbly
