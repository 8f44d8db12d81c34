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
#include "ui/qt/toast_view.h"
#include "ui/qt/widgets/colours.h"

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
  MenuBarView panel(MenuBarView::Style::panel, {});
  panel.update(panelContents({.dailyRoastLimit = 3}));
  album.add(panel, "panel-empty");
  panel.update(panelContents(busyState()));
  album.add(panel, "panel");

  ToastView toast({.title = "Your Mac would like a word", .message = busyState().lastRoast->text});
  album.add(toast, "toast");

  const fakes::FileTree tree;
  fakes::ApplicationHome home(tree.root() / "group");
  home.launchApp();
  DashboardView dashboard({.title = "quibbly Dashboard", .atFirst = {560, 760}, .smallest = {520, 400}}, [] {}, {});
  dashboard.update(dashboardContents(busyState(), home.calendar));
  album.add(dashboard, "dashboard");

  SettingsForm form(*home.app->appModel, home.kept, home.notifications, home.group.storage);
  SettingsView settings(*home.app->appModel, form, {});
  form.appeared();
  home.queue.run();
  settings.update();
  settings.resize(500, 1560);
  album.add(settings, "settings");
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
    takePictures(Album(directory, std::string(name) + "-" + scale + "x"));
  }
}
