#include "ui/qt/widgets/drawn_icon.h"

#include <utility>

#include <QIconEngine>
#include <QPainter>

namespace quibbly {
namespace {

using Draw = std::function<void(QPainter&, const QRectF&)>;

class Engine final : public QIconEngine {
 public:
  explicit Engine(Draw draw) : draw_(std::move(draw)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
    draw_(*painter, rect);
  }
  [[nodiscard]] QIconEngine* clone() const override { return new Engine(draw_); }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap drawn(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    paint(&painter, drawn.rect(), mode, state);
    return drawn;
  }
  QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
    QList<QSize> sizes;
    for (const int side : {16, 22, 24, 32, 44, 48, 64}) sizes.append({side, side});
    return sizes;
  }

 private:
  Draw draw_;
};

}  // namespace

QIcon drawnIcon(Draw draw) { return QIcon(new Engine(std::move(draw))); }

}  // namespace quibbly
