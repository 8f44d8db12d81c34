#include "ui/qt/toast_view.h"

#include <algorithm>

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "ui/qt/symbol.h"
#include "ui/qt/widgets/elided_lines.h"
#include "ui/qt/widgets/label.h"
#include "ui/qt/widgets/text.h"
#include "ui/qt/window_hints.h"

namespace quibbly {
namespace {

constexpr int padding = 16;
constexpr int besideSymbol = 12;
constexpr int aboveSymbol = 2;
constexpr int betweenTexts = 4;
constexpr int mostTitleLines = 1;
constexpr int mostMessageLines = 4;
constexpr double radius = 14;
constexpr Shadow shadow{.opacity = 0.28, .blur = 16, .down = 6};
/// Nothing blurs what is behind: more of it would cost the text its contrast.
constexpr double material = 0.92;

class Flame : public QWidget {
 public:
  Flame() {
    const int side = QFontMetrics(fontOf(FontRole::title2)).height();
    setFixedSize(side, side + aboveSymbol);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    paintPlainFlame(painter, QRectF(rect()).adjusted(0, aboveSymbol, 0, 0), colourOf(Colour::orange));
  }
};

Label* textOf(const std::string& text, FontRole role, Colour colour, int width, int mostLines) {
  auto* const label = new Label(role, colour);
  label->setText(elidedLines(qtText(text), fontOf(role), width, mostLines));
  label->setAccessibleName(qtText(text));
  return label;
}

}  // namespace

ToastView::ToastView(const BannerView& view, Surface surface)
    // No window manager keeps a window of its own above one that fills the screen, or on every workspace.
    : QDialog(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint),
      look_(radius, shadow, surface),
      frame_{.width = BannerFrame::toastWidth, .height = BannerFrame::toastHeight} {
  setWindowTitle(qtText(view.title));
  setAccessibleName(qtText(view.title + ". " + view.message));
  setAttribute(Qt::WA_ShowWithoutActivating);
  look_.prepare(*this);
  setAttribute(Qt::WA_X11NetWmWindowTypeNotification);
  auto* const row = new QHBoxLayout(this);
  row->setSpacing(besideSymbol);
  auto* const flame = new Flame;
  row->addWidget(flame, 0, Qt::AlignTop);
  auto* const texts = new QVBoxLayout;
  texts->setSpacing(betweenTexts);
  const int textWidth = BannerFrame::toastWidth - 2 * padding - besideSymbol - flame->width();
  texts->addWidget(textOf(view.title, FontRole::headline, Colour::primary, textWidth, mostTitleLines));
  texts->addWidget(textOf(view.message, FontRole::subheadline, Colour::secondary, textWidth, mostMessageLines));
  row->addLayout(texts, 1);
}

void ToastView::place(const BannerFrame& frame) {
  frame_ = frame;
  fit();
}

void ToastView::fit() {
  const int room = look_.room();
  const int around = padding + room;
  layout()->setContentsMargins(around, around, around, around);
  const int needed = layout()->totalSizeHint().height() - 2 * room;
  // As high as its text, in the middle of the height that is kept for it.
  const int above = std::max(0, (frame_.height - needed) / 2);
  setFixedSize(frame_.width + 2 * room, needed + 2 * room);
  move(frame_.x - room, frame_.y + above - room);
}

void ToastView::showEvent(QShowEvent* event) {
  fit();
  QDialog::showEvent(event);
  QAccessibleEvent shown(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&shown);
}

void ToastView::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  look_.cut(*this);
  window_hints::takeMouseOnlyIn(*this, look_.ground(*this).toRect());
}

void ToastView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  QColor ground = colourOf(Colour::panel);
  if (look_.surface() == Surface::translucent) ground.setAlphaF(static_cast<float>(material));
  look_.paint(painter, *this, {.ground = ground, .outline = colourOf(Colour::glint)});
}

}  // namespace quibbly
