#include "ui/qt/window_place.h"

#include <QApplication>
#include <QCursor>
#include <QScreen>
#include <QWidget>

namespace quibbly::window_place {
namespace {

/// At the sides, and for a title above.
constexpr QSize frame(16, 48);

const QScreen* screenOfTheUser() {
  if (const QWidget* const active = QApplication::activeWindow()) return active->screen();
  const QScreen* const atPointer = QGuiApplication::screenAt(QCursor::pos());
  return atPointer != nullptr ? atPointer : QGuiApplication::primaryScreen();
}

}  // namespace

QRect freeArea() { return screenOfTheUser()->availableGeometry(); }

QSize withRoomForFrame(const QSize& wanted) { return wanted.boundedTo(freeArea().size() - frame); }

}  // namespace quibbly::window_place
