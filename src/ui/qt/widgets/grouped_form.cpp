#include "ui/qt/widgets/grouped_form.h"

#include <QPainter>
#include <QVBoxLayout>

#include "ui/qt/widgets/colours.h"
#include "ui/qt/widgets/label.h"
#include "ui/qt/widgets/rounded_ground.h"
#include "ui/qt/widgets/scroll_bar.h"

namespace quibbly {
namespace {

constexpr int formMargin = 20;
constexpr int betweenSections = 18;
constexpr int belowTitle = 6;
constexpr int titleIndent = 8;
constexpr int rowHeight = 36;
constexpr int rowIndent = 12;
constexpr int aboveAndBelow = 7;
constexpr int betweenLabelAndValue = 16;
constexpr double radius = 9;

/// The ground of a section's rows.
class Box : public QWidget {
 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    paintRoundedGround(painter, rect(), radius,
                       {.ground = colourOf(Colour::box), .outline = colourOf(Colour::outline)});
  }
};

}  // namespace

FormRow::FormRow(QWidget* parent) : QWidget(parent), content_(new QHBoxLayout(this)) {
  content_->setContentsMargins(rowIndent, aboveAndBelow, rowIndent, aboveAndBelow);
  content_->setSpacing(betweenLabelAndValue);
  setMinimumHeight(rowHeight);
}

void FormRow::paintEvent(QPaintEvent* /*event*/) {
  const bool isFirst = y() == 0;
  if (!isFirst) QPainter(this).fillRect(0, 0, width(), 1, colourOf(Colour::separator));
}

FormSection::FormSection(const QString& title, QWidget* parent) : QWidget(parent) {
  auto* const layout = new QVBoxLayout(this);
  constexpr int around = GroupedForm::overhang;
  layout->setContentsMargins(around, around, around, around);
  layout->setSpacing(belowTitle);
  if (!title.isEmpty()) {
    auto* const heading = new Label(FontRole::headline);
    heading->setText(title);
    heading->setContentsMargins(titleIndent, 0, titleIndent, 0);
    layout->addWidget(heading);
  }
  auto* const box = new Box;
  rows_ = new QVBoxLayout(box);
  rows_->setContentsMargins(0, 0, 0, 0);
  rows_->setSpacing(0);
  layout->addWidget(box);
}

Label& FormSection::addRow(const QString& label, QWidget* control) {
  const FormRow& row = addFormRow();
  auto* const name = new Label(FontRole::body);
  name->setText(label);
  name->setBuddy(control);
  control->setAccessibleName(label);
  row.content().addWidget(name);
  row.content().addStretch();
  row.content().addWidget(control);
  return *name;
}

FormSection::ValueRow FormSection::newValueRow() {
  const ValueRow made{new FormRow, new Label(FontRole::body), new Label(FontRole::body, Colour::secondary)};
  made.value->setWraps();
  made.value->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
  made.label->setBuddy(made.value);
  made.row->content().addWidget(made.label);
  made.row->content().addWidget(made.value, 1);
  return made;
}

Label& FormSection::addValue(const QString& label) {
  const ValueRow made = newValueRow();
  made.label->setText(label);
  rows_->addWidget(made.row);
  return *made.value;
}

void FormSection::showValues(const std::vector<std::pair<QString, QString>>& values) {
  while (valueRows_.size() < values.size()) {
    const ValueRow made = newValueRow();
    rows_->insertWidget(static_cast<int>(valueRows_.size()), made.row);
    valueRows_.push_back(made);
  }
  for (std::size_t i = 0; i < valueRows_.size(); ++i) {
    const ValueRow& shown = valueRows_[i];
    shown.row->setVisible(i < values.size());
    if (i >= values.size()) continue;
    shown.label->setTextIfChanged(values[i].first);
    shown.value->setTextIfChanged(values[i].second);
  }
}

Label& FormSection::addText(Label* text) {
  text->setWraps();
  addFormRow().content().addWidget(text);
  return *text;
}

FormRow& FormSection::addControl(QWidget* control) {
  FormRow& row = addFormRow();
  row.content().addWidget(control);
  row.content().addStretch();
  return row;
}

FormRow& FormSection::addFormRow() {
  auto* const row = new FormRow;
  rows_->addWidget(row);
  return *row;
}

GroupedForm::GroupedForm(QWidget* parent) : QScrollArea(parent) {
  auto* const inside = new QWidget;
  sections_ = new QVBoxLayout(inside);
  constexpr int around = formMargin - overhang;
  sections_->setContentsMargins(around, around, around, around);
  sections_->setSpacing(betweenSections - 2 * overhang);
  sections_->setAlignment(Qt::AlignTop);
  setWidget(inside);
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBar(new ScrollBar);
  // The keys that scroll are for it.
  setFocusPolicy(Qt::StrongFocus);
}

FormSection& GroupedForm::addSection(const QString& title) {
  auto* const section = new FormSection(title);
  sections_->addWidget(section);
  return *section;
}

void GroupedForm::addBare(QWidget* widget) const { sections_->addWidget(widget); }

}  // namespace quibbly
