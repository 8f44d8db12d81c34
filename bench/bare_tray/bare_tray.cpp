// The least program of Qt Widgets that does on a desktop what quibbly does there: an icon in the tray, a panel below it on a
// click, and two failed opens every 0.4 seconds. Argument: the directory of the files. Ends when it is killed.

#include <cstdlib>
#include <fcntl.h>
#include <string>

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QSystemTrayIcon>
#include <QTimer>
#include <QVBoxLayout>

namespace {

QIcon drawnIcon() {
  QPixmap drawn(22, 22);
  drawn.fill(Qt::transparent);
  QPainter painter(&drawn);
  painter.setBrush(Qt::red);
  painter.drawEllipse(2, 2, 18, 18);
  return drawn;
}

/// As many texts and buttons as quibbly's panel has.
QWidget* newPanel() {
  auto* const panel = new QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint);
  auto* const layout = new QVBoxLayout(panel);
  for (int i = 0; i < 12; ++i) layout->addWidget(new QLabel("CPU estimate ~42%"));
  for (int i = 0; i < 6; ++i) layout->addWidget(new QPushButton("Roast me again"));
  panel->setFixedWidth(340);
  return panel;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QSystemTrayIcon icon(drawnIcon());
  QWidget* panel = nullptr;
  QObject::connect(&icon, &QSystemTrayIcon::activated, &icon, [&] {
    if (panel == nullptr) panel = newPanel();
    if (panel->isVisible()) return panel->hide();
    panel->move(icon.geometry().bottomLeft() - QPoint(340, 0));
    panel->show();
  });
  icon.show();
  const std::string directory = argc > 1 ? argv[1] : ".";
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    for (const char* name : {"/roastRequest.json", "/pendingNotify.json"}) {
      (void)::open((directory + name).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    }
  });
  timer.start(400);
  return QApplication::exec();
}
