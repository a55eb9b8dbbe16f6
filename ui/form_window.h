#pragma once

#include <QElapsedTimer>
#include <QScrollArea>
#include <QTimer>
#include <QWidget>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/form.h"
#include "ui/access_keys.h"
#include "ui/binding.h"
#include "ui/chosen_paths.h"

namespace quillmark {

/// The window of a form: its drawing, which scrolls where the screen is too small for it, and the
/// bindings of all its controls. Lives as long as the screen; showing and hiding is the form's.
class FormWindow : public QWidget {
 public:
  /// `paths` has to outlive the window.
  FormWindow(Form& form, const ChosenPaths& paths);
  ~FormWindow() override;

  /// The widget of `control`; null for menus and for a control that the drawing lacks.
  QWidget* WidgetOf(const Control& control) const;
  /// The size that the drawing needs so that nothing of it is cut or has to scroll.
  QSize Needed() const;
  /// The size that the form starts with: as a person left it, or as designed, and more if the
  /// drawing needs it, as far as the screen goes.
  QSize NaturalSize() const;

  /// Onto the screen, above `owner` if there is one, and from it.
  void Open(QWidget* owner);
  void Conceal();
  /// Caption, place and topmost word as the form says.
  void FollowForm();

  /// Brings all controls up to date, or one, or the focus. Each inside a `RefreshScope`.
  void RefreshAll();
  void RefreshControl(const Control& control);
  void RefreshFocus();
  /// Gives all captions their access keys, and names everything that takes the focus for screen
  /// readers by its spoken name; controls of one kind and name are numbered.
  void RefreshNames();

  /// One line for each control without a fitting widget, each widget without a control, and the
  /// first place where the drawing's tab order leaves that of the controls.
  std::vector<std::string> Errors() const;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void FollowFrame();
  void FollowCaption();
  QSize AtLeastNeeded(QSize size) const;
  QSize WantedSize() const;
  void PlaceAbove(QWidget* owner);
  std::string TabOrderError() const;
  /// A label leads to the box that it names.
  std::string LabelError(const Binding& binding) const;
  QString AccessibleNameOf(const Control& control) const;

  Form& form_;
  const ChosenPaths& paths_;
  QWidget* content_;
  QScrollArea* area_;
  std::vector<std::unique_ptr<Binding>> bindings_;
  std::map<const Control*, Binding*> byControl_;
  std::unique_ptr<AccessKeys> accessKeys_;
  std::optional<int> titled_;     ///< the count of the caption that the window's title was made of
  std::optional<QPoint> placed_;  ///< where the form's own place put the window last
  QTimer following_;              ///< until the frame has come to rest
  std::optional<QSize> kept_;     ///< the last size that a person gave it
  QSize refused_;                 ///< the last size that the form did not take
  QElapsedTimer sinceRefused_;
};

/// Gives `window`, which is on the screen and which all others have to wait for, a place above the
/// forms that stay on top: they would hide what it asks.
void RaiseAboveTopmost(QWidget& window);

}  // namespace quillmark
