// The parts of the desktop's face that need no desktop.

#include <algorithm>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ui/qt/menu_bar_view.h"
#include "ui/qt/panel_placement.h"
#include "ui/qt/toast_view.h"
#include "ui/qt/widgets/elided_lines.h"
#include "ui/qt/widgets/text.h"

namespace quibbly {
namespace {

/// Qt without a screen.
class DesktopViews : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    static int argc = 1;
    static char name[] = "test";
    static char* argv[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false");
    static const QApplication application(argc, argv);
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
    ToastView toast({.title = std::string(length, 'T'), .message = std::string(length, 'm')});
    toast.place({.x = 100, .y = 10, .width = 400, .height = 110});
    EXPECT_EQ(toast.frameGeometry().center().x(), 299) << length;
    EXPECT_GE(toast.width(), 400) << length;
    EXPECT_LE(toast.height(), 110 + 2 * (toast.width() - 400)) << length;
  }
}

TEST_F(DesktopViews, a_selection_in_the_roast_stays_while_the_figures_change_and_every_command_runs) {
  std::string ran;
  const auto note = [&](char c) { return [&ran, c] { ran += c; }; };
  MenuBarView panel(MenuBarView::Style::panel, {.roast = note('r'),
                                                .roastAndNotify = note('n'),
                                                .copyRoast = note('c'),
                                                .openDashboard = note('d'),
                                                .openSettings = note('s'),
                                                .quit = note('q')});
  PanelState state{.lastRoast = LastRoast{.text = "A roast of several words."}, .dailyRoastLimit = 3};
  panel.update(panelContents(state));
  panel.show();
  const auto labels = panel.findChildren<QLabel*>();
  const auto roast = std::ranges::find(labels, QString("Roast"), &QWidget::accessibleName);
  ASSERT_NE(roast, labels.end());
  (*roast)->setSelection(2, 5);
  const int before = panel.height();
  state.roastsSentToday = 2;
  state.statusMessage = "Another status, which makes the panel higher.";
  panel.update(panelContents(state));
  EXPECT_EQ((*roast)->selectedText(), "roast");
  EXPECT_GT(panel.height(), before);
  for (auto* const button : panel.findChildren<QAbstractButton*>()) button->click();
  EXPECT_EQ(ran, "rncdsq");
}

}  // namespace
}  // namespace quibbly
