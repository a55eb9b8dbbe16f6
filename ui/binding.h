#pragma once

#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QObject>
#include <QWidget>
#include <memory>
#include <optional>

#include "controls/control.h"

namespace quillmark {

/// Lives while widgets are brought up to date: what they signal meanwhile is no act of a person.
class RefreshScope {
 public:
  RefreshScope() { ++depth_; }
  ~RefreshScope() { --depth_; }
  RefreshScope(const RefreshScope&) = delete;
  RefreshScope& operator=(const RefreshScope&) = delete;
  static bool Running() { return depth_ > 0; }

 private:
  inline static int depth_ = 0;
};

/// Ties one control to one widget: what a person does with the widget goes to the control, what the
/// control says comes to the widget. There is one class of it for each kind of control.
class Binding : public QObject {
 public:
  Binding(Control& control, QWidget& widget);

  Control& TheControl() const { return control_; }
  QWidget& Widget() const { return widget_; }
  /// Shows `caption`, which is the control's with a mark for its access key.
  void ShowMarked(const QString& caption) { ShowCaption(caption); }

  /// Makes the widget say what the control says. Has to run inside a `RefreshScope`.
  void Refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

  virtual void ShowCaption(const QString& /*caption*/) {}
  /// What the kind has beyond caption, tool tip and its two words.
  virtual void ShowState() {}
  /// Whether the press or release is used up, so that the widget must not see it.
  virtual bool MousePressed(const QMouseEvent& /*event*/) { return false; }
  virtual bool MouseReleased(const QMouseEvent& /*event*/) { return false; }
  virtual bool KeyPressed(const QKeyEvent& event);
  /// Any other event; whether it is used up.
  virtual bool OtherEvent(QEvent& /*event*/) { return false; }

  /// For an act that the control refused: the widget goes back to what the control says.
  void Restore();
  /// Runs `check` as soon as what is happening is over, unless the control itself has changed the
  /// widget. For what a screen reader may do to the widget past all keys and buttons.
  template <class Check>
  void CheckSoon(const Check& check) {
    if (!RefreshScope::Running()) QMetaObject::invokeMethod(this, check, Qt::QueuedConnection);
  }

 private:
  void NoteFocus() const;
  Key KeyPressedIn(const QKeyEvent& event);

  Control& control_;
  QWidget& widget_;
  std::optional<QString> caption_;  ///< as the widget was told last
  quint64 lastCharacter_ = 0;       ///< when one was typed in the widget, in the time of events
};

/// The binding for `control`, or null if `widget` is not of a kind that can show it.
std::unique_ptr<Binding> MakeBinding(Control& control, QWidget& widget);

}  // namespace quillmark
