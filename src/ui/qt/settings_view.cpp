#include "ui/qt/settings_view.h"

#include <algorithm>

#include <QEvent>
#include <QStyle>
#include <QVBoxLayout>

#include "ui/command_titles.h"
#include "ui/qt/about_view.h"
#include "ui/qt/widgets/grouped_form.h"
#include "ui/qt/widgets/label.h"
#include "ui/qt/widgets/picker.h"
#include "ui/qt/widgets/push_button.h"
#include "ui/qt/widgets/stepper.h"
#include "ui/qt/widgets/text.h"
#include "ui/qt/widgets/toggle_switch.h"
#include "ui/qt/window_place.h"

namespace quibbly {
namespace {

constexpr QSize smallest(500, 660);
constexpr int cardHeight = 150;

constexpr const char* appearanceHelp =
    "When on, quibbly runs as a menu bar agent (no Dock icon). Use the flame in the menu bar, Settings, or the widget. "
    "Opening Dashboard briefly shows a normal window.";
constexpr const char* randomHelp =
    "Generates a roast on that schedule and posts a system notification. Respects Pause and the daily limit.";
constexpr const char* limitHelp =
    "Limit applies to notify paths (random, test, Roast + notify, widget). Menu “Roast me again” without notify is "
    "unlimited.";
constexpr const char* stylesHelp =
    "macOS styles: Temporary = short banner (often suppressed while quibbly is frontmost after widget taps). Permanent "
    "= stays until dismissed (more reliable). The app always shows its own desktop toast top-right.";
constexpr std::string_view notPausedHelp = "Not paused — random / notify roasts are allowed (within daily limit).";
constexpr const char* widgetHelp =
    "macOS: right-click the desktop → Edit Widgets → search “quibbly”. Keep the app running. After an update, remove and "
    "re-add the widget if it looks stuck.";
constexpr const char* privacyHelp =
    "Preferences stay in the app container. The widget only reads shared snapshots — not these settings.";

/// Shows what holds already, which is no choice of the user's.
void showSwitch(ToggleSwitch& toggle, bool isOn) {
  const QSignalBlocker quiet(toggle);
  toggle.setChecked(isOn);
}

QString decimal(std::int64_t number) { return QString::number(number); }

void addHelp(FormSection& section, const char* help) {
  section.addText(new Label(FontRole::caption, Colour::secondary)).setText(QString::fromUtf8(help));
}

/// A picker of every value of the enumeration, which calls with the one that the user picks.
template <typename Value, typename Set>
Picker* pickerOf(const Set& set) {
  auto* const picker = new Picker;
  for (const auto& value : rawValues<Value>) picker->addItem(qtText(displayText(value.value)));
  QObject::connect(picker, &QComboBox::activated, picker,
                   [set](int index) { set(rawValues<Value>[static_cast<std::size_t>(index)].value); });
  return picker;
}

}  // namespace

SettingsView::SettingsView(AppModel& model, SettingsForm& form, const ProgramVersion& version)
    : QDialog(nullptr, Qt::Window), model_(model), form_(form) {
  setWindowTitle("Settings");
  auto* const layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* const sections = new GroupedForm;
  layout->addWidget(sections);
  sections->addBare(new AboutView(AboutView::Variant::compact, cardHeight, version));
  addPersonality(*sections);
  addAppearance(*sections);
  addRandomRoasts(*sections);
  addNotifications(*sections);
  addPause(*sections);
  addWidget(*sections);
  addHelp(sections->addSection(), privacyHelp);
  setGround(*this, Colour::window);
  setMinimumSize(window_place::withRoomForFrame(smallest));
  // A window that is given no place forgets the user's when it is closed.
  setGeometry(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, minimumSize(), window_place::freeArea()));
  // No control has the keyboard before the user reaches for one.
  sections->setAccessibleName(windowTitle());
  sections->setFocus();
}

void SettingsView::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) setGround(*this, Colour::window);
}

void SettingsView::addPersonality(GroupedForm& sections) {
  FormSection& section = sections.addSection("Personality");
  intensity_ = pickerOf<Intensity>([this](Intensity chosen) { form_.setIntensity(chosen); });
  section.addRow("Intensity", intensity_);
  harsh_ = addSwitch(section, "Allow harsh language", [this](bool on) { form_.setAllowHarshLanguage(on); });
  appNames_ = addSwitch(section, "Include app names in roasts", [this](bool on) { form_.setIncludeAppNames(on); });
}

void SettingsView::addAppearance(GroupedForm& sections) {
  FormSection& section = sections.addSection("Appearance");
  hideFromDock_ = addSwitch(section, "Hide app from Dock", [this](bool on) { form_.setHideFromDock(on); });
  addHelp(section, appearanceHelp);
}

void SettingsView::addRandomRoasts(GroupedForm& sections) {
  FormSection& section = sections.addSection("Random roasts");
  interval_ = pickerOf<RandomRoastInterval>([this](RandomRoastInterval chosen) {
    // The one that it is already would start anew.
    if (chosen != form_.randomInterval() || chosen != *model_.randomRoastInterval) form_.setRandomInterval(chosen);
  });
  section.addRow("Roast me randomly", interval_);
  addHelp(section, randomHelp);
}

void SettingsView::addNotifications(GroupedForm& sections) {
  FormSection& section = sections.addSection("Notifications & limits");
  limitStepper_ = new Stepper(0, highestDailyRoastLimit);
  connect(limitStepper_, &QAbstractSlider::valueChanged, this, [this](int limit) { form_.setDailyLimit(limit); });
  limit_ = &section.addRow("Daily roast limit: ", limitStepper_);
  limitStepper_->setAccessibleName("Daily roast limit");
  sent_ = &section.addValue("Sent today");
  remaining_ = &section.addValue("Remaining today");
  addHelp(section, limitHelp);
  status_ = &section.addValue("System status");
  addHelp(section, stylesHelp);
  addButton(section, "Open System Settings → Notifications", [this] { form_.openSystemNotificationSettings(); });
  addButton(section, "Refresh permission status", [this] { form_.refreshPermissionStatus(); });
  addButton(section, "Send test notification", [this] { form_.sendTestNotification(); });
}

void SettingsView::addPause(GroupedForm& sections) {
  FormSection& section = sections.addSection("Pause timed roasts");
  pause_ = &section.addText(new Label(FontRole::body));
  auto* const resume = new PushButton(command_titles::resume);
  connect(resume, &QAbstractButton::clicked, this, [this] { model_.resumeRoasts(); });
  resume_ = &section.addControl(resume);
  addButton(section, command_titles::pauseForAnHour, [this] { model_.pauseRoasts(anHour); });
  addButton(section, command_titles::pauseUntilTomorrow, [this] { model_.pauseRoastsUntilTomorrow(); });
}

void SettingsView::addWidget(GroupedForm& sections) {
  FormSection& section = sections.addSection("Widget");
  addHelp(section, widgetHelp);
  group_ = &section.addValue("App Group");
}

ToggleSwitch* SettingsView::addSwitch(FormSection& section, const char* label, const std::function<void(bool)>& set) {
  auto* const toggle = new ToggleSwitch;
  section.addRow(label, toggle);
  connect(toggle, &QAbstractButton::toggled, this, set);
  return toggle;
}

void SettingsView::addButton(FormSection& section, const char* title, const std::function<void()>& run) {
  auto* const button = new PushButton(QString::fromUtf8(title));
  connect(button, &QAbstractButton::clicked, this, run);
  section.addControl(button);
}

void SettingsView::present() {
  intensity_->setCurrentIndex(static_cast<int>(indexOf(form_.intensity())));
  showSwitch(*harsh_, form_.allowHarshLanguage());
  showSwitch(*appNames_, form_.includeAppNames());
  showSwitch(*hideFromDock_, form_.hideFromDock());
  interval_->setCurrentIndex(static_cast<int>(indexOf(form_.randomInterval())));
  {
    const QSignalBlocker quiet(limitStepper_);
    limitStepper_->setValue(static_cast<int>(std::clamp<std::int64_t>(form_.dailyLimit(), 0, highestDailyRoastLimit)));
  }
  limit_->setTextIfChanged("Daily roast limit: " + decimal(form_.dailyLimit()));
  sent_->setTextIfChanged(decimal(model_.roastsSentToday));
  remaining_->setTextIfChanged(decimal(form_.remainingToday()));
  status_->setTextIfChanged(qtText(*form_.notificationStatusText));
  status_->setColour(*form_.bannersAllowed ? Colour::green : Colour::orange);
  const auto pause = model_.pauseStatusText();
  pause_->setTextIfChanged(qtText(pause ? std::string_view(*pause) : notPausedHelp));
  pause_->setColour(pause ? Colour::orange : Colour::secondary);
  pause_->setFontRole(pause ? FontRole::body : FontRole::caption);
  resume_->setVisible(pause.has_value());
  const bool available = form_.containerAvailable();
  group_->setTextIfChanged(available ? "OK" : "Missing");
  group_->setColour(available ? Colour::green : Colour::red);
}

}  // namespace quibbly
