// The windows as those who do not see them have them: objects with a role, a name, a value and actions.

#include <chrono>
#include <functional>
#include <utility>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <gtest/gtest.h>

#include "fakes/application_home.h"
#include "fakes/file_tree.h"
#include "fakes/offscreen.h"
#include "ui/qt/desktop_face.h"
#include "ui/qt/widgets/text.h"

namespace quibbly {
namespace {

using Role = QAccessible::Role;

struct NoTray final : TrayHost {
  void observe(std::function<void(bool isThere)> /*changed*/) override {}
};

/// The whole face over a model, as it stands where there is no tray.
class FacesUnseen : public fakes::Offscreen {
 protected:
  void SetUp() override {
    face_.start();
    settle();
  }

  /// As long as a roast takes to be told everywhere.
  void settle() {
    home_.queue.advance(std::chrono::seconds(10));
    QApplication::processEvents();
  }
  /// What is on the screen with this role, and a name that begins so; null when there is nothing.
  static QAccessibleInterface* find(Role role, const QString& name) {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
      if (!window->isVisible()) continue;
      if (auto* const found = findIn(QAccessible::queryAccessibleInterface(window), role, name)) return found;
    }
    return nullptr;
  }
  void use(Role role, const QString& name, const QString& action) {
    auto* const object = find(role, name);
    ASSERT_NE(object, nullptr) << qPrintable(name);
    ASSERT_NE(object->actionInterface(), nullptr) << qPrintable(name);
    object->actionInterface()->doAction(action);
    // It goes down, and up a moment later.
    const auto* const button = qobject_cast<QAbstractButton*>(object->object());
    while (button != nullptr && button->isDown()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    settle();
  }
  void press(const QString& button) { use(Role::Button, button, QAccessibleActionInterface::pressAction()); }
  static QString nameOf(QAccessibleInterface* object) { return object ? object->text(QAccessible::Name) : "nothing"; }
  /// What the label is the label of.
  static QAccessibleInterface* labelled(const QString& label) {
    auto* const object = find(Role::StaticText, label);
    const auto relations = object ? object->relations(QAccessible::Labelled) : decltype(object->relations())();
    return relations.empty() ? nullptr : relations.front().first;
  }

 private:
  static QAccessibleInterface* findIn(QAccessibleInterface* in, Role role, const QString& name) {
    if (in->role() == role && !in->state().invisible && nameOf(in).startsWith(name)) return in;
    for (int i = 0; i < in->childCount(); ++i) {
      if (auto* const found = in->child(i) ? findIn(in->child(i), role, name) : nullptr) return found;
    }
    return nullptr;
  }

 protected:
  fakes::FileTree tree_;
  fakes::ApplicationHome home_{tree_.root() / "group"};
  AppModel& model_ = home_.launchApp();
  SettingsForm form_{model_, home_.kept, home_.notifications, home_.group.storage};
  NoTray tray_;
  WindowedApplication application_{home_.queue};
  int quits_ = 0;
  DesktopFace face_{{.queue = home_.queue,
                     .trayHost = tray_,
                     .application = application_,
                     .settings = form_,
                     .quit = [this] { ++quits_; },
                     .version = {.version = "1.2.3", .build = "4"}},
                    model_};
  Observers::Token changes_ = model_.observe([this] { face_.changed(); });
  Observers::Token settingsChanges_ = form_.observe([this] { face_.changed(); });
};

TEST_F(FacesUnseen, have_names_and_values_and_do_what_they_are_for) {
  const auto roasts = [&] { return home_.recentRoasts.history().texts.size(); };
  const auto before = roasts();
  press("Roast me again");
  EXPECT_EQ(roasts(), before + 1);
  press("Copy roast");
  EXPECT_EQ(home_.desktop.pasted, model_.lastRoast->value().text);
  EXPECT_NE(find(Role::StaticText, qtText(home_.desktop.pasted)), nullptr);
  EXPECT_EQ(nameOf(labelled("CPU estimate")).left(1), "~");
  EXPECT_NE(find(Role::StaticText, "Notify budget: 0/3 today"), nullptr);
  press("Settings");
  EXPECT_NE(find(Role::StaticText, "quibbly version 1.2.3. Comedy, not diagnostics."), nullptr);
  auto* const stepper = find(Role::Slider, "Daily roast limit");
  ASSERT_NE(stepper, nullptr);
  EXPECT_EQ(nameOf(stepper), "Daily roast limit");
  EXPECT_EQ(labelled("Daily roast limit: 3"), stepper);
  EXPECT_EQ(stepper->valueInterface()->currentValue(), 3);
  stepper->valueInterface()->setCurrentValue(7);
  settle();
  EXPECT_EQ(*model_.dailyRoastLimit, 7);
  for (const char* text : {"Daily roast limit: 7", "Notify budget: 0/7 today"}) {
    EXPECT_NE(find(Role::StaticText, text), nullptr) << text;
  }
  press("Roast + notify");
  for (const auto& [label, value] : {std::pair{"Sent today", "1"},
                                     {"Remaining today", "6"},
                                     {"App Group", "OK"},
                                     {"Intensity", "Sarcastic"},
                                     {"Roast me randomly", "Off"}}) {
    EXPECT_EQ(nameOf(labelled(label)), value) << label;
  }
  for (const char* chosen : {"Sarcastic", "Off"}) EXPECT_NE(find(Role::ComboBox, chosen), nullptr) << chosen;
  for (const auto& [button, told] : {std::pair{"Pause for 1 hour", "Paused until"},
                                     {"Resume now", "Not paused"},
                                     {"Pause until tomorrow", "Paused until"}}) {
    press(button);
    EXPECT_NE(find(Role::StaticText, told), nullptr) << button;
  }
  press("Open dashboard");
  const auto made = roasts();
  press("Roast me now");
  EXPECT_EQ(roasts(), made + 1);
  EXPECT_EQ(quits_, 0);
  press("Quit quibbly");
  EXPECT_EQ(quits_, 1);
}

TEST_F(FacesUnseen, have_switches_that_say_whether_they_are_on) {
  press("Settings");
  struct Case {
    const char* label;
    bool (SettingsForm::*stored)();
    bool atFirst;
  };
  for (const Case& c : {Case{"Allow harsh language", &SettingsForm::allowHarshLanguage, false},
                        Case{"Include app names in roasts", &SettingsForm::includeAppNames, true},
                        Case{"Hide app from Dock", &SettingsForm::hideFromDock, false}}) {
    auto* const toggle = find(Role::CheckBox, c.label);
    ASSERT_NE(toggle, nullptr) << c.label;
    EXPECT_EQ(labelled(c.label), toggle) << c.label;
    for (const bool isOn : {c.atFirst, !c.atFirst}) {
      EXPECT_EQ(toggle->state().checked, isOn) << c.label;
      EXPECT_EQ((form_.*c.stored)(), isOn) << c.label;
      use(Role::CheckBox, c.label, QAccessibleActionInterface::toggleAction());
    }
  }
}

}  // namespace
}  // namespace quibbly
