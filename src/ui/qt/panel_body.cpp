#include "ui/qt/panel_body.h"

#include <QAccessible>
#include <QGridLayout>

#include "ui/qt/widgets/divider.h"
#include "ui/qt/widgets/label.h"
#include "ui/qt/widgets/text.h"

namespace quibbly {
namespace {

constexpr int betweenColumns = 16;
constexpr int betweenRows = 4;
constexpr int betweenFooterLines = 3;

Colour inkOf(PanelContents::FooterLine::Role role) {
  return role == PanelContents::FooterLine::Role::pause ? Colour::orange : Colour::tertiary;
}

}  // namespace

PanelBody::PanelBody()
    : heading_(new Label(FontRole::headline)),
      collecting_(new Label(FontRole::body, Colour::secondary)),
      rows_(new QWidget),
      grid_(new QGridLayout(rows_)),
      roastArea_(new QWidget),
      roast_(new Label(FontRole::callout)),
      footerLines_(new QVBoxLayout),
      status_(new Label(FontRole::caption, Colour::secondary)) {
  setSpacing(betweenParts);
  for (Label* const one : {heading_, collecting_, roast_, status_}) one->setWraps();
  addWidget(heading_);
  collecting_->setText(qtText(PanelContents::collecting));
  addWidget(collecting_);
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setHorizontalSpacing(betweenColumns);
  grid_->setVerticalSpacing(betweenRows);
  grid_->setColumnStretch(1, 1);
  addWidget(rows_);
  addRoast();
  footerLines_->setSpacing(betweenFooterLines);
  addLayout(footerLines_);
  addWidget(status_);
  addWidget(new Divider);
}

void PanelBody::addRoast() {
  auto* const inside = new QVBoxLayout(roastArea_);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->setSpacing(betweenParts);
  inside->addWidget(new Divider);
  roast_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  roast_->setFocusPolicy(Qt::ClickFocus);
  roast_->setObjectName("roast");
  inside->addWidget(roast_);
  addWidget(roastArea_);
}

void PanelBody::show(const PanelContents& contents) {
  heading_->setTextIfChanged(qtText(contents.heading));
  collecting_->setVisible(!contents.rows);
  rows_->setVisible(contents.rows.has_value());
  if (contents.rows) showRows(*contents.rows);
  roastArea_->setVisible(contents.roast.has_value());
  if (contents.roast) roast_->setTextIfChanged(qtText(*contents.roast));
  showFooter(contents.footer);
  showStatus(contents.status);
}

void PanelBody::showRows(const std::vector<PanelContents::Row>& rows) {
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

void PanelBody::showFooter(const std::vector<PanelContents::FooterLine>& lines) {
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

void PanelBody::showStatus(const std::optional<std::string>& status) {
  const bool isNews = status && qtText(*status) != status_->text();
  if (status) status_->setTextIfChanged(qtText(*status));
  status_->setVisible(status.has_value());
  if (!isNews || !status_->isVisible()) return;
  QAccessibleEvent said(status_, QAccessible::Alert);
  QAccessible::updateAccessibility(&said);
}

}  // namespace quibbly
