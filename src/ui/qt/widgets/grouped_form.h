#pragma once

#include <utility>
#include <vector>

#include <QScrollArea>

class QHBoxLayout;
class QVBoxLayout;

namespace quibbly {

class Label;

/// One line of a form: what is in it stands in a row, and a hairline parts it from the line above.
class FormRow : public QWidget {
 public:
  explicit FormRow(QWidget* parent = nullptr);
  [[nodiscard]] QHBoxLayout& content() const { return *content_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QHBoxLayout* content_;
};

/// A rounded box of rows with a title above it.
class FormSection : public QWidget {
 public:
  explicit FormSection(const QString& title, QWidget* parent = nullptr);

  /// A label at the left, and what it is the label of at the right. Gives the label.
  Label& addRow(const QString& label, QWidget* control);
  /// A label at the left and its value at the right.
  Label& addValue(const QString& label);
  /// Labels and values as the first rows of the section, in place of those shown before.
  void showValues(const std::vector<std::pair<QString, QString>>& values);
  /// A text over the whole width.
  Label& addText(Label* text);
  /// Anything over the whole width, at its own size.
  FormRow& addControl(QWidget* control);

 private:
  struct ValueRow {
    FormRow* row;
    Label* label;
    Label* value;
  };

  FormRow& addFormRow();
  [[nodiscard]] static ValueRow newValueRow();

  QVBoxLayout* rows_ = nullptr;
  std::vector<ValueRow> valueRows_;  // those of showValues
};

/// A form of sections below one another, which scrolls when it is too long for its window.
class GroupedForm : public QScrollArea {
 public:
  explicit GroupedForm(QWidget* parent = nullptr);

  /// Without a title when that is empty.
  FormSection& addSection(const QString& title = {});
  /// How far what stands outside of any box reaches beyond the boxes, on each side.
  static constexpr int overhang = 8;

  /// Something between the sections, outside of any box.
  void addBare(QWidget* widget) const;

 private:
  QVBoxLayout* sections_ = nullptr;
};

}  // namespace quibbly
