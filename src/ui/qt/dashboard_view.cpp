#include "ui/qt/dashboard_view.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QStyle>
#include <QVBoxLayout>

#include "ui/qt/about_view.h"
#include "ui/qt/widgets/divider.h"
#include "ui/qt/widgets/grouped_form.h"
#include "ui/qt/widgets/label.h"
#include "ui/qt/widgets/push_button.h"
#include "ui/qt/widgets/text.h"
#include "ui/qt/window_place.h"

namespace quibbly {
namespace {

constexpr int headerSides = 16;
constexpr int headerAboveAndBelow = 6;
constexpr int aroundTheRoast = 4;
constexpr int cardHeight = 180;

std::vector<std::pair<QString, QString>> texts(const std::vector<DashboardContents::Row>& rows) {
  std::vector<std::pair<QString, QString>> all;
  all.reserve(rows.size());
  for (const auto& row : rows) all.emplace_back(qtText(row.label), qtText(row.value));
  return all;
}

QLayout* header(const std::function<void()>& roast) {
  auto* const layout = new QHBoxLayout;
  layout->setContentsMargins(headerSides, headerAboveAndBelow, headerSides, headerAboveAndBelow);
  auto* const title = new Label(FontRole::headline);
  title->setText("Dashboard");
  auto* const button = new PushButton("Roast me now");
  QObject::connect(button, &QAbstractButton::clicked, button, roast);
  layout->addWidget(title);
  layout->addStretch();
  layout->addWidget(button);
  return layout;
}

}  // namespace

DashboardView::DashboardView(const Frame& frame, const std::function<void()>& roast, const ProgramVersion& version)
    : QDialog(nullptr, Qt::Window), roast_(new Label(FontRole::body)) {
  setWindowTitle(frame.title);
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addLayout(header(roast));
  layout->addWidget(new Divider);
  auto* const form = new GroupedForm;
  layout->addWidget(form);
  today_ = &form->addSection("Today");
  today_->addText(roast_);
  estimates_ = &form->addSection("Live estimates");
  form->addBare(new AboutView(AboutView::Variant::full, cardHeight, version));
  // No control has the keyboard before the user reaches for one.
  form->setAccessibleName(frame.title);
  form->setFocus();
  setGround(*this, Colour::window);
  setMinimumSize(window_place::withRoomForFrame(frame.smallest));
  setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, window_place::withRoomForFrame(frame.atFirst),
                                  window_place::freeArea()));
}

void DashboardView::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) setGround(*this, Colour::window);
}

void DashboardView::keyPressEvent(QKeyEvent* event) { event->ignore(); }

void DashboardView::present(const DashboardContents& contents) {
  today_->showValues(texts(contents.today));
  roast_->setTextIfChanged(qtText(contents.roast ? *contents.roast : DashboardContents::noRoast));
  const int around = contents.roast ? aroundTheRoast : 0;
  roast_->setContentsMargins(0, around, 0, around);
  roast_->setColour(contents.roast ? Colour::primary : Colour::secondary);
  estimates_->setVisible(contents.estimates.has_value());
  if (contents.estimates) estimates_->showValues(texts(*contents.estimates));
}

}  // namespace quibbly
