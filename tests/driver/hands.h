#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/controls.h"
#include "controls/form.h"
#include "support/text.h"
#include "tools/json_text.h"

namespace quillmark {

/// What a control shows a person. Parts that its kind has not are missing.
struct Sight {
  bool enabled = false;
  bool visible = false;
  bool focus = false;
  std::optional<std::string> caption = {};
  std::optional<std::string> text = {};
  std::pair<int, int> selection = {};
  std::optional<bool> ticked = {};
  std::optional<std::vector<Column>> columns = {};
  std::optional<std::vector<ListViewRow>> rows = {};  ///< of a plain list with one cell each
  int row = -1;

  bool operator==(const Sight&) const = default;
};

/// What a person does with the controls and sees of them: here with the logical controls
/// themselves. The acts return false, without effect, if the control can't be reached, and throw
/// `CommandError` for a control that no person would do such a thing with.
class Hands {
 public:
  virtual ~Hands() = default;

  virtual bool Reach(const Control& control) { return control.Reachable(); }
  virtual bool PressMouse(Control& control, MouseButton button);
  virtual bool PressKey(Control& control, Key key);
  virtual bool Paste(TextBox& box, const std::string& text);
  virtual bool Select(Control& control, int row);
  virtual bool ChooseEntry(MenuEntry& entry) { return entry.Choose(); }
  virtual bool Close(Form& form) { return form.Close(); }
  virtual bool Resize(Form& form, int width, int height) { return form.DragTo(width, height); }
  /// Presses the left button on what there is to be clicked.
  bool Click(Control& control);
  /// Type over all text of the box, or behind it; no text at all over it is one `Delete`.
  bool Type(TextBox& box, const std::string& text);
  bool Append(TextBox& box, const std::string& text);

  /// What the control, or the form without its controls, now says.
  Json Describe(const Control& control);
  /// Whether others can reach and see just the same of the control.
  bool SeeTheSame(const Control& control, Hands& others);
  virtual Json DescribeForm(const Form& form);

  /// Lets everything happen that does not wait for a person.
  virtual void Settle() {}

 protected:
  virtual Sight See(const Control& control);
  /// Puts the caret of a box behind its text, or marks all of it.
  virtual void PlaceCaret(TextBox& box, bool markAll);

 private:
  bool TypeCharacters(TextBox& box, const std::string& text);
};

/// The answer to an act that is none for a control of that kind.
CommandError NotFor(const Control& control);

/// `control` as what it is, for the acts of one kind.
template <class Kind>
Kind& As(Control& control) {
  if (auto* wanted = dynamic_cast<Kind*>(&control)) return *wanted;
  throw NotFor(control);
}

/// Popup menus and their entries.
bool IsMenu(const Control& control);
bool HasCaption(const Control& control);

}  // namespace quillmark
