#include "ui/qt/menu_bar_view.h"

#include <QAccessible>
#include <QCloseEvent>
#include <QGridLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "ui/command_titles.h"
#include "ui/qt/widgets/command_button.h"
#include "ui/qt/widgets/divider.h"
#include "ui/qt/widgets/label.h"
#include "ui/qt/widgets/text.h"
#include "ui/qt/window_hints.h"

namespace quibbly {
namespace {

constexpr int panelWidth = 340;
constexpr int padding = 12;
constexpr int spacing = 10;
constexpr int betweenColumns = 16;
constexpr int betweenRows = 4;
constexpr int betweenFooterLines = 3;
constexpr double radius = 12;
constexpr Shadow shadow{.opacity = 0.25, .blur = 18, .down = 5};

void setShown(Label& label, const std::optional<std::string>& shown) {
  if (shown) label.setTextIfChanged(qtText(*shown));
  label.setVisible(shown.has_value());
}

QVBoxLayout* column(QWidget* of, int space) {
  auto* const layout = new QVBoxLayout(of);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(space);
  return layout;
}

Colour inkOf(PanelContents::FooterLine::Role role) {
  return role == PanelContents::FooterLine::Role::pause ? Colour::orange : Colour::tertiary;
}

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
      heading_(new Label(FontRole::headline)),
      collecting_(new Label(FontRole::body, Colour::secondary)),
      rows_(new QWidget),
      grid_(new QGridLayout(rows_)),
      status_(new Label(FontRole::caption, Colour::secondary)) {
  setWindowTitle("quibbly");
  if (style_ == Style::panel) look_.prepare(*this);
  setFocusPolicy(Qt::StrongFocus);
  outside_->setSpacing(spacing);
  outside_->setSizeConstraint(QLayout::SetNoConstraint);
  addBody();
  addCommands(commands);
}

void MenuBarView::addBody() {
  auto* const body = column(nullptr, spacing);
  body->setContentsMargins(CommandButton::overhang, 0, CommandButton::overhang, 0);
  outside_->addLayout(body);
  body->addWidget(heading_);
  collecting_->setText(qtText(PanelContents::collecting));
  for (Label* const one : {heading_, collecting_}) one->setWraps();
  body->addWidget(collecting_);
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setHorizontalSpacing(betweenColumns);
  grid_->setVerticalSpacing(betweenRows);
  grid_->setColumnStretch(1, 1);
  body->addWidget(rows_);
  addRoast(*body);
  footerLines_ = column(nullptr, betweenFooterLines);
  body->addLayout(footerLines_);
  status_->setWraps();
  body->addWidget(status_);
  body->addWidget(new Divider);
}

void MenuBarView::addRoast(QVBoxLayout& layout) {
  roastArea_ = new QWidget;
  auto* const inside = column(roastArea_, spacing);
  inside->addWidget(new Divider);
  roast_ = new Label(FontRole::callout);
  roast_->setWraps();
  roast_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  roast_->setFocusPolicy(Qt::ClickFocus);
  roast_->setObjectName("roast");
  inside->addWidget(roast_);
  layout.addWidget(roastArea_);
}

void MenuBarView::addCommands(const Commands& commands) {
  auto* const rows = column(nullptr, 0);
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
  auto* const line = column(nullptr, 0);
  line->setContentsMargins(CommandButton::overhang, 0, CommandButton::overhang, spacing);
  line->addWidget(new Divider);
  rows->addLayout(line);
  add(command_titles::quit, QKeySequence("Ctrl+Q"), commands.quit);
}

void MenuBarView::update(const PanelContents& contents) {
  heading_->setTextIfChanged(qtText(contents.heading));
  collecting_->setVisible(!contents.rows);
  rows_->setVisible(contents.rows.has_value());
  if (contents.rows) showRows(*contents.rows);
  roastArea_->setVisible(contents.roast.has_value());
  if (contents.roast) roast_->setTextIfChanged(qtText(*contents.roast));
  copy_->setEnabled(contents.roast.has_value());
  showFooter(contents.footer);
  const bool isNews = contents.status && qtText(*contents.status) != status_->text();
  setShown(*status_, contents.status);
  if (isNews && isVisible()) {
    QAccessibleEvent said(status_, QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
  }
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

void MenuBarView::showRows(const std::vector<PanelContents::Row>& rows) {
  while (rowLabels_.size() < rows.size()) {
    const int row = static_cast<int>(rowLabels_.size());
    auto* const label = new Label(FontRole::body, Colour::secondary);
    auto* const value = new Label(FontRole::body);
    label->setBuddy(value);
    for (Label* const one : {label, value}) one->setMonospaced();
    grid_->addWidget(label, row, 0);
    grid_->addWidget(value, row, 1);
    rowLabels_.emplace_back(label, value);
  }
  for (std::size_t i = 0; i < rowLabels_.size(); ++i) {
    const auto& [label, value] = rowLabels_[i];
    const bool isShown = i < rows.size();
    if (isShown) {
      label->setTextIfChanged(qtText(rows[i].label));
      value->setTextIfChanged(qtText(rows[i].value));
    }
    label->setVisible(isShown);
    value->setVisible(isShown);
  }
}

void MenuBarView::showFooter(const std::vector<PanelContents::FooterLine>& lines) {
  while (footer_.size() < lines.size()) {
    footer_.push_back(new Label(FontRole::caption2, Colour::tertiary));
    footer_.back()->setWraps();
    footerLines_->addWidget(footer_.back());
  }
  for (std::size_t i = 0; i < footer_.size(); ++i) {
    Label& label = *footer_[i];
    label.setVisible(i < lines.size());
    if (i >= lines.size()) continue;
    label.setColour(inkOf(lines[i].role));
    label.setTextIfChanged(qtText(lines[i].text));
  }
}

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
