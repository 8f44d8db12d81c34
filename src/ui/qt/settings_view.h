#pragma once

#include <functional>

#include <QDialog>

#include "ui/qt/program_version.h"
#include "ui/settings_form.h"

class QComboBox;

namespace quibbly {

class FormRow;
class FormSection;
class GroupedForm;
class Label;
class Stepper;
class ToggleSwitch;

/// The settings: a window with everything that the user may choose.
class SettingsView : public QDialog {
 public:
  SettingsView(AppModel& model, SettingsForm& form, const ProgramVersion& version);

  /// Shows what the model and the form hold now.
  void present();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void addPersonality(GroupedForm& sections);
  void addAppearance(GroupedForm& sections);
  void addRandomRoasts(GroupedForm& sections);
  void addNotifications(GroupedForm& sections);
  void addPause(GroupedForm& sections);
  void addWidget(GroupedForm& sections);
  ToggleSwitch* addSwitch(FormSection& section, const char* label, const std::function<void(bool)>& set);
  void addButton(FormSection& section, const char* title, const std::function<void()>& run);

  AppModel& model_;
  SettingsForm& form_;

  QComboBox* intensity_ = nullptr;
  ToggleSwitch* harsh_ = nullptr;
  ToggleSwitch* appNames_ = nullptr;
  ToggleSwitch* hideFromDock_ = nullptr;
  QComboBox* interval_ = nullptr;
  Label* limit_ = nullptr;
  Stepper* limitStepper_ = nullptr;
  Label* sent_ = nullptr;
  Label* remaining_ = nullptr;
  Label* status_ = nullptr;
  Label* pause_ = nullptr;
  FormRow* resume_ = nullptr;
  Label* group_ = nullptr;
};

}  // namespace quibbly
