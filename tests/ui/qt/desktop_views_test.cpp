// The parts of the desktop's face that need no desktop.

#include <chrono>
#include <functional>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/manual_queue.h"
#include "fakes/offscreen.h"
#include "ui/qt/menu_bar_view.h"
#include "ui/qt/panel_placement.h"
#include "ui/qt/toast_screen.h"
#include "ui/qt/toast_view.h"
#include "ui/qt/widgets/colours.h"
#include "ui/qt/widgets/elided_lines.h"
#include "ui/qt/widgets/text.h"
#include "ui/qt/windowed_application.h"

// Asked for by the sanitizers: the library of fonts keeps what it read until the program ends, and how Qt's threads
// synchronise cannot be seen.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }
extern "C" const char* __tsan_default_options() { return "ignore_noninstrumented_modules=1"; }
// NOLINTEND(bugprone-reserved-identifier)

namespace quibbly {
namespace {

class DesktopViews : public fakes::Offscreen {
 protected:
  static bool runUntil(const std::function<bool()>& holds) {
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
      if (holds()) QApplication::exit(1);
    });
    QTimer::singleShot(std::chrono::seconds(30), &look, [] { QApplication::exit(0); });
    look.start(1);
    return QApplication::exec() == 1;
  }
};

struct Placement {
  const char* what;
  QRect clicked;
  QPoint expected;
};

TEST_F(DesktopViews, the_panel_opens_beside_what_was_clicked_and_inside_the_screen) {
  const QRect free(0, 30, 1280, 830);  // bars above and below
  const QSize panel(340, 400);
  for (const Placement& c :
       {Placement{"a bar above", {600, 0, 24, 30}, {442, 34}}, Placement{"its right end", {1256, 0, 24, 30}, {936, 34}},
        Placement{"its left end", {0, 0, 24, 30}, {4, 34}}, Placement{"a bar below", {600, 860, 24, 30}, {442, 456}},
        Placement{"a bar at the left", {0, 300, 30, 24}, {4, 328}},
        Placement{"the pointer low at the right", {1279, 880, 1, 1}, {936, 456}}}) {
    EXPECT_EQ(panelPosition(c.clicked, panel, free), c.expected) << c.what;
  }
  EXPECT_EQ(panelPosition({0, 0, 1, 1}, {340, 900}, {100, 50, 300, 200}), QPoint(104, 54)) << "no room at all";
}

TEST_F(DesktopViews, text_is_cut_at_its_last_line_and_nowhere_else) {
  const QFont font;
  const QString words = QString("word ").repeated(60);
  EXPECT_EQ(elidedLines("short", font, 200, 4), "short");
  EXPECT_EQ(elidedLines("two\nlines", font, 200, 4), "two\nlines");
  EXPECT_EQ(elidedLines("two\nlines", font, 200, 1), "two lines");
  EXPECT_EQ(elidedLines(words, font, 200, 4).count('\n'), 3);
  EXPECT_TRUE(elidedLines(words, font, 200, 4).endsWith(QString::fromUtf8("…")));
  for (const QString& line : elidedLines(words + QString(300, 'x'), font, 200, 100).split('\n')) {
    EXPECT_LE(QFontMetrics(font).horizontalAdvance(line), 200) << line.toStdString();
  }
}

TEST_F(DesktopViews, a_toast_is_four_hundred_wide_whatever_it_says) {
  for (const std::size_t length : {1U, 60U, 2000U}) {
    ToastView toast({.title = std::string(length, 'T'), .message = std::string(length, 'm')}, Surface::opaque);
    toast.place({.x = 100, .y = 10, .width = 400, .height = 110});
    EXPECT_EQ(toast.x(), 100) << length;
    EXPECT_EQ(toast.width(), 400) << length;
    EXPECT_LE(toast.height(), 110) << length;
  }
}

TEST_F(DesktopViews, a_selection_in_the_roast_stays_while_the_figures_change_and_every_command_runs) {
  std::string ran;
  const auto note = [&](char c) { return [&ran, c] { ran += c; }; };
  MenuBarView panel(MenuBarView::Style::panel, Surface::translucent,
                    {.roast = note('r'),
                     .roastAndNotify = note('n'),
                     .copyRoast = note('c'),
                     .openDashboard = note('d'),
                     .openSettings = note('s'),
                     .quit = note('q')});
  PanelState state{.lastRoast = LastRoast{.text = "A roast of several words."}, .dailyRoastLimit = 3};
  panel.present(panelContents(state));
  panel.show();
  auto* const roast = panel.findChild<QLabel*>("roast");
  ASSERT_NE(roast, nullptr);
  roast->setSelection(2, 5);
  const int before = panel.height();
  state.roastsSentToday = 2;
  state.statusMessage = "Another status, which makes the panel higher.";
  panel.present(panelContents(state));
  EXPECT_EQ(roast->selectedText(), "roast");
  EXPECT_GT(panel.height(), before);
  for (auto* const button : panel.findChildren<QAbstractButton*>()) button->click();
  EXPECT_EQ(ran, "rncdsq");
}

TEST_F(DesktopViews, an_open_panel_grows_with_the_font_of_the_desktop) {
  fakes::ManualQueue queue;
  WindowedApplication application(queue);
  MenuBarView panel(MenuBarView::Style::panel, Surface::opaque, {});
  application.add(panel);
  panel.present(panelContents({.lastRoast = LastRoast{.text = "A roast of several words."}, .dailyRoastLimit = 3}));
  panel.show();
  const int before = panel.height();
  const QFont font = QApplication::font();
  QFont large = font;
  large.setPointSizeF(1.5 * font.pointSizeF());
  // Qt tells it to widgets only while the application runs.
  QTimer::singleShot(0, [&] { QApplication::setFont(large); });
  EXPECT_TRUE(runUntil([&] { return panel.height() > 1.2 * before; })) << panel.height() << " after " << before;
  EXPECT_EQ(panel.width(), 340);
  QApplication::setFont(font);
}

TEST_F(DesktopViews, the_appearance_is_that_which_was_preferred_last_and_else_the_themes) {
  const Appearance ofTheTheme = appearance();
  const std::optional<Appearance> preferences[] = {std::nullopt, Appearance::light, Appearance::dark};
  for (const auto& first : preferences) {
    for (const auto& second : preferences) {
      for (const auto& preferred : {first, second}) {
        setAppearance(preferred);
        EXPECT_EQ(appearance(), preferred.value_or(ofTheTheme));
      }
    }
  }
  setAppearance(std::nullopt);
}

TEST_F(DesktopViews, a_toast_may_go_when_it_has_faded) {
  auto toast = ToastScreen().makePanel({.title = "Title", .message = "Message"});
  toast->setFrame({.x = 0, .y = 0, .width = 400, .height = 110});
  toast->orderFront();
  toast->fadeOut(std::chrono::milliseconds(20), [&] { toast.reset(); });
  EXPECT_TRUE(runUntil([&] { return toast == nullptr; }));
}

TEST_F(DesktopViews, a_program_is_regular_while_that_is_held_whatever_its_policy) {
  fakes::ManualQueue queue;
  WindowedApplication application(queue);
  auto first = application.holdRegular();
  auto second = application.holdRegular();
  application.setActivationPolicy(ActivationPolicy::accessory);
  first.reset();
  EXPECT_EQ(application.activationPolicy(), ActivationPolicy::regular);
  second.reset();
  EXPECT_EQ(application.activationPolicy(), ActivationPolicy::accessory);
}

TEST_F(DesktopViews, windows_come_back_where_they_were_and_panels_do_not) {
  fakes::ManualQueue queue;
  WindowedApplication application(queue);
  QWidget window;
  MenuBarView panel(MenuBarView::Style::panel, Surface::opaque, {});
  for (QWidget* const one : {&window, static_cast<QWidget*>(&panel)}) {
    application.add(*one);
    one->move(50, 60);
    one->show();
  }
  application.hide();
  EXPECT_FALSE(application.hasVisibleWindows());
  int shown = 0;
  application.onShow([&] { ++shown; });
  application.unhide();
  EXPECT_EQ(shown, 1) << "it may have missed what changed";
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.pos(), QPoint(50, 60));
  EXPECT_FALSE(panel.isVisible());
  window.showMaximized();
  window.setWindowState(window.windowState() | Qt::WindowMinimized);
  application.activate(true);
  EXPECT_TRUE(window.isMinimized()) << "the user put it away";
  application.show(window);
  EXPECT_TRUE(window.isMaximized());
  EXPECT_FALSE(window.isMinimized());
}

}  // namespace
}  // namespace quibbly
