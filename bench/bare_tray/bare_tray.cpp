// The least program of Qt Widgets that does on a desktop what quibbly does there: an icon in the tray, a panel below it on a
// click; and two failed opens every 0.4 seconds, as a program makes them that nobody tells of new files. Argument: the
// directory of the files. Ends when it is killed.

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

/// With the texts and the buttons of quibbly's panel, as Qt has them.
QWidget* newPanel() {
  auto* const panel = new QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint);
  auto* const layout = new QVBoxLayout(panel);
  for (const char* text :
       {"Mac Mood: Proud", "CPU estimate", "~42%", "RAM estimate", "~17%", "Battery", "80%", "Uptime", "3 days", "Apps",
        "24", "Thermal", "nominal", "Notify budget: 1/3 today", "Running — Dock + menu bar flame."}) {
    layout->addWidget(new QLabel(text));
  }
  for (const char* title :
       {"Roast me again", "Roast + notify", "Copy roast", "Open dashboard", "Settings…", "Quit quibbly"}) {
    layout->addWidget(new QPushButton(title));
  }
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
