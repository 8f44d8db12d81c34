#include "ui/qt/menu_bar_view.h"

#include <QEvent>
#include <QGridLayout>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>

#include "ui/qt/widgets/command_button.h"
#include "ui/qt/widgets/divider.h"
#include "ui/qt/widgets/label.h"
#include "ui/qt/widgets/text.h"

namespace quibbly {
namespace {

constexpr int panelWidth = 340;
constexpr int padding = 12;
constexpr int spacing = 10;
constexpr int betweenColumns = 16;
constexpr int betweenRows = 4;
constexpr int betweenFooterLines = 3;
constexpr double radius = 12;
constexpr std::size_t footerLines = 3;

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

}  // namespace

MenuBarView::MenuBarView(const Commands& commands)
    : QDialog(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::NoDropShadowWindowHint),
      heading_(new Label(FontRole::headline)),
      collecting_(new Label(FontRole::body, Colour::secondary)),
      rows_(new QWidget),
      grid_(new QGridLayout(rows_)),
      status_(new Label(FontRole::caption, Colour::secondary)) {
  setWindowTitle("quibbly");
  setAttribute(Qt::WA_TranslucentBackground);
  setFocusPolicy(Qt::StrongFocus);
  auto* const layout = new QVBoxLayout(this);
  constexpr int sides = padding - CommandButton::overhang;
  layout->setContentsMargins(sides, padding, sides, padding);
  layout->setSpacing(spacing);
  layout->setSizeConstraint(QLayout::SetNoConstraint);
  auto* const body = column(nullptr, spacing);
  body->setContentsMargins(CommandButton::overhang, 0, CommandButton::overhang, 0);
  layout->addLayout(body);
  body->addWidget(heading_);
  collecting_->setText(qtText(PanelContents::collecting));
  body->addWidget(collecting_);
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setHorizontalSpacing(betweenColumns);
  grid_->setVerticalSpacing(betweenRows);
  grid_->setColumnStretch(1, 1);
  body->addWidget(rows_);
  addRoast(*body);
  auto* const footer = column(nullptr, betweenFooterLines);
  for (std::size_t i = 0; i < footerLines; ++i) {
    footer_.push_back(new Label(FontRole::caption2, Colour::tertiary));
    footer->addWidget(footer_.back());
  }
  body->addLayout(footer);
  status_->setWraps();
  body->addWidget(status_);
  body->addWidget(new Divider);
  addCommands(*layout, commands);
}

void MenuBarView::addRoast(QVBoxLayout& layout) {
  roastArea_ = new QWidget;
  auto* const inside = column(roastArea_, spacing);
  inside->addWidget(new Divider);
  roast_ = new Label(FontRole::callout);
  roast_->setWraps();
  roast_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  roast_->setFocusPolicy(Qt::ClickFocus);
  roast_->setAccessibleName("Roast");
  inside->addWidget(roast_);
  layout.addWidget(roastArea_);
}

void MenuBarView::addCommands(QVBoxLayout& layout, const Commands& commands) {
  auto* const rows = column(nullptr, 0);
  const auto add = [&](const char* title, const QKeySequence& keys, const std::function<void()>& run) {
    auto* const button = new CommandButton(QString::fromUtf8(title), keys);
    connect(button, &QAbstractButton::clicked, this, run);
    rows->addWidget(button);
    return button;
  };
  layout.addLayout(rows);
  add("Roast me again", QKeySequence("Ctrl+R"), commands.roast);
  add("Roast + notify", {}, commands.roastAndNotify);
  copy_ = add("Copy roast", QKeySequence("Ctrl+C"), commands.copyRoast);
  add("Open dashboard", QKeySequence("Ctrl+D"), commands.openDashboard);
  add("Settings…", QKeySequence("Ctrl+,"), commands.openSettings);
  rows->addSpacing(spacing);
  auto* const line = column(nullptr, 0);
  line->setContentsMargins(CommandButton::overhang, 0, CommandButton::overhang, spacing);
  line->addWidget(new Divider);
  rows->addLayout(line);
  add("Quit quibbly", QKeySequence("Ctrl+Q"), commands.quit);
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
  setShown(*status_, contents.status);
  fit();
}

/// As high as the text needs at this width.
void MenuBarView::fit() {
  layout()->activate();
  const bool wraps = layout()->hasHeightForWidth();
  setFixedSize(panelWidth, wraps ? layout()->totalHeightForWidth(panelWidth) : layout()->totalSizeHint().height());
}

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
  for (std::size_t i = 0; i < footer_.size(); ++i) {
    Label& label = *footer_[i];
    label.setVisible(i < lines.size());
    if (i >= lines.size()) continue;
    label.setRole(inkOf(lines[i].role));
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
  QDialog::showEvent(event);
  // No command has the keyboard before the user reaches for one.
  setFocus();
}

void MenuBarView::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && !isActiveWindow()) hide();
}

void MenuBarView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(colourOf(Colour::separator), 1));
  painter.setBrush(colourOf(Colour::panel));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

/// Without a compositor the corners would be black.
void MenuBarView::resizeEvent(QResizeEvent* event) {
  QDialog::resizeEvent(event);
  QPainterPath outline;
  outline.addRoundedRect(rect(), radius, radius);
  setMask(QRegion(outline.toFillPolygon().toPolygon()));
}

}  // namespace quibbly
