#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/key.h"

namespace quillmark {

class Control;
class Form;

enum class ControlKind {
  Label,
  Button,
  OptionButton,
  CheckBox,
  TextBox,
  ComboBox,
  ListBox,
  ListView,
  Frame,
  Picture,
  PopupMenu,
  MenuEntry
};

/// The kind in plain words, such as "check box".
std::string_view KindName(ControlKind kind);

/// How a control starts: what the form was designed with. Fields that a kind has no use for stay
/// empty.
struct Design {
  Control* frame = nullptr;    ///< what it stands in; none for a control of the bare form
  Control* namedBy = nullptr;  ///< whose caption tells what it is for, if it has none itself
  std::string caption = {};
  bool enabled = true;
  bool visible = true;
  std::string text = {};               ///< of a text box
  int maxLength = 0;                   ///< of a text box, in characters; 0 for no limit
  std::vector<std::string> rows = {};  ///< of a combo or list box
  bool ticked = false;                 ///< of a check box or option button
};

/// What a text shows: all that stands before its first zero character.
std::string ShownText(std::string_view text);

/// A caption without mnemonic marks and without the colon that leads to a box; empty for dots
/// alone.
std::string Spoken(std::string caption);

/// A control as plain state. A write from code raises what the kind's event rule says, at once; an
/// act of a person goes through the operations that return whether the control could be reached.
///
/// Controls register themselves with their form, which lists them in the order of their
/// declaration; that is the tab order too. They are never copied or moved.
class Control {
 public:
  Control(Form& form, ControlKind kind, std::string_view name, int index, const Design& design);
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  ControlKind Kind() const { return kind_; }
  const std::string& Name() const { return name_; }
  /// Place in its array, from 0; -1 for a control that stands alone.
  int Index() const { return index_; }
  /// The name, with the index in parentheses for a control of an array: "txtFog(1)".
  std::string FullName() const;
  Form& Owner() const { return form_; }
  Control* Parent() const { return design_.frame; }
  Control* NamedBy() const { return design_.namedBy; }

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string_view caption);
  const std::string& ToolTip() const { return toolTip_; }
  void SetToolTip(std::string_view toolTip);
  /// What a person calls it: its caption without mark and colon, or that of the control that names
  /// it, or its tool tip; empty if it has none of them.
  std::string SpokenName() const;
  /// What surprises people about it. Unlike the tool tip, which it stands in for, it is no name.
  const std::string& Hint() const { return hint_; }
  void SetHint(std::string_view hint);
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);

  /// Whether a person can get at it: visible and enabled, its frames too, its form shown and not
  /// behind a modal one.
  virtual bool Reachable() const;
  /// Whether it can take the focus at all.
  virtual bool TakesFocus() const { return true; }
  bool HasFocus() const;
  void TakeFocus();

  /// Back to the design state. Handlers stay attached.
  virtual void Restart();

  /// A key goes down in the control. Runs what the event rule ties to it and what the desktop does
  /// with it anywhere; returns whether that used the key up, so that the control's own editing must
  /// not see it. Not an act by itself.
  virtual bool HandleKey(Key key);
  /// The focus stepped to the control, by a key or because it could not stay where it was.
  virtual void HandleFocusStep() {}
  /// The focus went from the control to another one of its form.
  virtual void HandleFocusLoss() {}
  /// A key comes up in the control.
  virtual void HandleKeyRelease(Key /*key*/) {}
  /// A person presses it by Enter or Escape in another control, which keeps the focus. False if it
  /// can't be reached, or is nothing to press.
  virtual bool PressFromElsewhere() { return false; }

  /// Acts of a person, each with the test of reach in front and the fault boundary around it.
  /// All return false, without any effect, if the control can't be reached.
  bool KeyDown(Key key, bool& used);
  bool KeyUp(Key key);

 protected:
  /// Runs `act` as one act of a person on this control. What begins on a control closes a popup
  /// menu that is open elsewhere; what only ends there, a release, leaves it open, and so does what
  /// happens in the menu itself.
  bool Act(const std::function<void()>& act);
  bool ActBesidePopup(const std::function<void()>& act);
  /// Whether arrows move the focus, because they mean nothing else in the control.
  virtual bool ArrowsStepFocus() const { return false; }
  /// Notes that the screen has to show this control anew.
  void MarkChanged();
  /// How the platform's message names what a person did with this control.
  std::string OperationName() const;
  const Design& StartState() const { return design_; }

 private:
  friend class Desktop;
  friend class Form;

  bool Escape();

  Form& form_;
  ControlKind kind_;
  std::string name_;
  int index_;
  Design design_;

  std::string caption_;
  std::string toolTip_;
  std::string hint_;
  bool enabled_ = true;
  bool visible_ = true;
  bool marked_ = false;
};

}  // namespace quillmark
