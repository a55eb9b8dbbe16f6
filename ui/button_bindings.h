#pragma once

#include <QCheckBox>
#include <QRadioButton>

#include "controls/buttons.h"
#include "ui/access_keys.h"
#include "ui/binding.h"

namespace quillmark {

/// A button with a caption, a line icon, or both.
class ButtonBinding : public Binding {
 public:
  ButtonBinding(Button& control, QAbstractButton& widget);

 protected:
  void ShowCaption(const QString& caption) override { button_.setText(caption); }
  bool OtherEvent(QEvent& event) override;

 private:
  void ShowIcon();

  QAbstractButton& button_;
};

class CheckBoxBinding : public Binding {
 public:
  CheckBoxBinding(CheckBox& control, QCheckBox& widget);

 protected:
  void ShowCaption(const QString& caption) override { box_.setText(WithoutAccessKey(caption)); }
  void ShowState() override { box_.setChecked(check_.Ticked()); }
  bool MousePressed(const QMouseEvent& event) override;
  bool OtherEvent(QEvent& event) override;

 private:
  /// A screen reader toggles the widget without a click, and means one.
  void TakeToggle();

  CheckBox& check_;
  QCheckBox& box_;
  bool deactivated_ = false;  ///< the window, since the last press
};

class OptionButtonBinding : public Binding {
 public:
  OptionButtonBinding(OptionButton& control, QRadioButton& widget);

 protected:
  void ShowCaption(const QString& caption) override { radio_.setText(caption); }
  void ShowState() override { radio_.setChecked(option_.On()); }

 private:
  void TakeToggle();

  OptionButton& option_;
  QRadioButton& radio_;
};

}  // namespace quillmark
