#include "ui/qt/menu_bar_view.h"

#include <QCloseEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "ui/command_titles.h"
#include "ui/qt/panel_body.h"
#include "ui/qt/widgets/colours.h"
#include "ui/qt/widgets/command_button.h"
#include "ui/qt/widgets/divider.h"
#include "ui/qt/window_hints.h"

namespace quibbly {
namespace {

constexpr int panelWidth = 340;
constexpr int padding = 12;
constexpr int spacing = PanelBody::betweenParts;
constexpr double radius = 12;
constexpr Shadow shadow{.opacity = 0.25, .blur = 18, .down = 5};

Qt::WindowFlags flagsOf(MenuBarView::Style style) {
  if (style == MenuBarView::Style::window) return Qt::Window | Qt::MSWindowsFixedSizeDialogHint;
  return Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::NoDropShadowWindowHint;
}

}  // namespace

MenuBarView::MenuBarView(Style style, Surface surface, const Commands& commands)
    : QDialog(nullptr, flagsOf(style)),
      style_(style),
      look_(radius, shadow, surface),
      outside_(new QVBoxLayout(this)),
      body_(new PanelBody) {
  setWindowTitle("quibbly");
  if (style_ == Style::panel) look_.prepare(*this);
  setFocusPolicy(Qt::StrongFocus);
  outside_->setSpacing(spacing);
  outside_->setSizeConstraint(QLayout::SetNoConstraint);
  body_->setContentsMargins(CommandButton::overhang, 0, CommandButton::overhang, 0);
  outside_->addLayout(body_);
  addCommands(commands);
}

void MenuBarView::addCommands(const Commands& commands) {
  auto* const rows = new QVBoxLayout;
  rows->setSpacing(0);
  const auto add = [&](const char* title, const QKeySequence& keys, const std::function<void()>& run) {
    auto* const button = new CommandButton(QString::fromUtf8(title), keys);
    connect(button, &QAbstractButton::clicked, this, run);
    rows->addWidget(button);
    return button;
  };
  outside_->addLayout(rows);
  add(command_titles::roast, QKeySequence("Ctrl+R"), commands.roast);
  add(command_titles::roastAndNotify, {}, commands.roastAndNotify);
  copy_ = add(command_titles::copyRoast, QKeySequence("Ctrl+C"), commands.copyRoast);
  add("Open dashboard", QKeySequence("Ctrl+D"), commands.openDashboard);
  add("Settings…", QKeySequence("Ctrl+,"), commands.openSettings);
  rows->addSpacing(spacing);
  auto* const line = new QVBoxLayout;
  line->setContentsMargins(CommandButton::overhang, 0, CommandButton::overhang, spacing);
  line->addWidget(new Divider);
  rows->addLayout(line);
  add(command_titles::quit, QKeySequence("Ctrl+Q"), commands.quit);
}

void MenuBarView::present(const PanelContents& contents) {
  body_->show(contents);
  copy_->setEnabled(contents.roast.has_value());
  fit();
}

/// As high as the text needs at this width.
void MenuBarView::fit() {
  const int room = roomAround();
  constexpr int sides = padding - CommandButton::overhang;
  outside_->setContentsMargins(sides + room, padding + room, sides + room, padding + room);
  outside_->activate();
  const int wide = panelWidth + 2 * room;
  const QSize wanted(
      wide, outside_->hasHeightForWidth() ? outside_->totalHeightForWidth(wide) : outside_->totalSizeHint().height());
  if (wanted == size() && wanted == minimumSize()) return;
  setFixedSize(wanted);
  if (resized_) resized_();
}

int MenuBarView::roomAround() const { return style_ == Style::panel ? look_.room() : 0; }

QSize MenuBarView::groundSize() const { return size() - QSize(2 * roomAround(), 2 * roomAround()); }

void MenuBarView::moveGround(const QPoint& position) { move(position - QPoint(roomAround(), roomAround())); }

bool MenuBarView::event(QEvent* event) {
  const bool isDone = QDialog::event(event);
  // What is in it needs more or less room now.
  if (event->type() == QEvent::LayoutRequest) fit();
  return isDone;
}

void MenuBarView::showEvent(QShowEvent* event) {
  fit();
  QDialog::showEvent(event);
  // No command has the keyboard before the user reaches for one.
  setFocus();
}

void MenuBarView::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (style_ == Style::panel && event->type() == QEvent::ActivationChange && !isActiveWindow()) hide();
}

void MenuBarView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  if (style_ == Style::panel) {
    look_.paint(painter, *this, {.ground = colourOf(Colour::panel), .outline = colourOf(Colour::separator)});
  } else {
    painter.fillRect(rect(), colourOf(Colour::panel));
  }
}

void MenuBarView::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  if (style_ != Style::panel) return;
  look_.cut(*this);
  window_hints::takeMouseOnlyIn(*this, look_.ground(*this).toRect());
}

void MenuBarView::reject() {
  if (style_ == Style::panel) {
    QDialog::reject();
  } else {
    showMinimized();
  }
}

void MenuBarView::closeEvent(QCloseEvent* event) {
  event->setAccepted(!event->spontaneous());
  if (event->spontaneous()) reject();
}

}  // namespace quibbly
