// Writes a picture of every face, light and dark, into the directory that it is given: to be looked at.

#include <filesystem>

#include <QApplication>
#include <QPainter>
#include <QStyleFactory>

#include "fakes/application_home.h"
#include "fakes/file_tree.h"
#include "fakes/samples.h"
#include "ui/qt/dashboard_view.h"
#include "ui/qt/menu_bar_view.h"
#include "ui/qt/settings_view.h"
#include "ui/qt/symbol.h"
#include "ui/qt/toast_view.h"
#include "ui/qt/widgets/colours.h"
#include "ui/qt/widgets/text.h"

namespace quibbly {
namespace {

PanelState busyState() {
  PanelState state{.mood = {.score = 66, .label = MacMood::Label::judgingYou},
                   .latestSnapshot = fakes::quietSample(),
                   .lastRoast = LastRoast{.text = "RAM ~91%. Somewhere a tab is essential. The other 200 are vibes."},
                   .pauseStatusText = "Paused until 17 Nov 2026, 00:00",
                   .randomRoastInterval = RandomRoastInterval::fifteenMinutes,
                   .roastsSentToday = 1,
                   .dailyRoastLimit = 3,
                   .statusMessage = "Desktop toast + notification (1/3 today)."};
  state.latestSnapshot->cpuUsage = 0.429;
  state.latestSnapshot->memoryUtilizationEstimate = 0.91;
  state.latestSnapshot->runningAppCount = 24;
  return state;
}

class Album {
 public:
  Album(std::filesystem::path directory, std::string suffix)
      : directory_(std::move(directory)), suffix_(std::move(suffix)) {}

  void add(QWidget& face, const std::string& name) const {
    face.show();
    for (int turn = 0; turn < 10; ++turn) QApplication::processEvents();
    (void)face.grab().save(QString::fromStdString(directory_ / (name + "-" + suffix_ + ".png")));
  }

 private:
  std::filesystem::path directory_;
  std::string suffix_;
};

void takePictures(const Album& album) {
  MenuBarView panel(MenuBarView::Style::panel, Surface::translucent, {});
  panel.present(panelContents({.dailyRoastLimit = 3}));
  album.add(panel, "panel-empty");
  panel.present(panelContents(busyState()));
  album.add(panel, "panel");

  ToastView toast({.title = "Your Mac would like a word", .message = busyState().lastRoast->text},
                  Surface::translucent);
  album.add(toast, "toast");

  const fakes::FileTree tree;
  fakes::ApplicationHome home(tree.root() / "group");
  home.launchApp();
  DashboardView dashboard({.title = "quibbly Dashboard", .atFirst = {560, 760}, .smallest = {520, 400}}, [] {}, {});
  dashboard.present(dashboardContents(busyState(), shortTime));
  album.add(dashboard, "dashboard");

  SettingsForm form(*home.app->appModel, home.kept, home.notifications, home.group.storage);
  SettingsView settings(*home.app->appModel, form, {});
  form.appeared();
  home.queue.run();
  settings.present();
  settings.resize(500, 1560);
  album.add(settings, "settings");
}

/// The three symbols, as large as trays show them, on a light panel and on a dark one.
class Tray : public QWidget {
 public:
  Tray() { setFixedSize(3 * cell, 2 * cell); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    using Symbol = MenuBarLabel::Symbol;
    QPainter painter(this);
    for (const auto& [row, ground] : {std::pair{0, QColor(0xF0F0F0)}, {1, QColor(0x202020)}}) {
      painter.fillRect(0, row * cell, width(), cell, ground);
      int x = inset;
      for (const Symbol symbol : {Symbol::flame, Symbol::flameFill, Symbol::exclamationmarkTriangleFill}) {
        trayIconOf(symbol).paint(&painter, x, row * cell + inset, side, side);
        x += cell;
      }
    }
  }

 private:
  static constexpr int cell = 30;
  static constexpr int side = 22;
  static constexpr int inset = (cell - side) / 2;
};

/// What a layout has to hold at most: a long roast, a long date, and a date that is written from right to left.
void takeLongPictures(const Album& album) {
  PanelState state = busyState();
  state.lastRoast->text.clear();
  while (state.lastRoast->text.size() < 300)
    state.lastRoast->text += "Somewhere a tab is essential; the rest are vibes. ";
  state.pauseStatusText = "Paused until Donnerstag, der 17. September 2026 um 23:00 Uhr Mitteleuropäischer Sommerzeit";
  MenuBarView panel(MenuBarView::Style::panel, Surface::translucent, {});
  panel.present(panelContents(state));
  album.add(panel, "panel-long");
  ToastView toast({.title = state.lastRoast->text, .message = state.lastRoast->text}, Surface::translucent);
  album.add(toast, "toast-long");
  state = busyState();
  state.pauseStatusText = "Paused until ١٧ نوفمبر ٢٠٢٦، ١٢:٠٠ ص";
  panel.present(panelContents(state));
  album.add(panel, "panel-right-to-left-date");
}

void takeLargePictures(const Album& album) {
  const QFont font = QApplication::font();
  QFont large = font;
  large.setPointSizeF(1.5 * font.pointSizeF());
  QApplication::setFont(large);
  takePictures(album);
  takeLongPictures(album);
  QApplication::setFont(font);
}

}  // namespace
}  // namespace quibbly

int main(int argc, char** argv) {
  using namespace quibbly;
  const QApplication application(argc, argv);
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  if (argc < 2) return 2;
  const std::filesystem::path directory = argv[1];
  const std::string scale = qEnvironmentVariable("QT_SCALE_FACTOR", "1").toStdString();
  for (const auto& [appearance, name] : {std::pair{Appearance::light, "light"}, {Appearance::dark, "dark"}}) {
    setAppearance(appearance);
    const Album album(directory, std::string(name) + "-" + scale + "x");
    takePictures(album);
    takeLongPictures(album);
    takeLargePictures(Album(directory, std::string(name) + "-large-" + scale + "x"));
  }
  Tray tray;
  Album(directory, scale + "x").add(tray, "tray");
}
