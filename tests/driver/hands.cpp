#include "driver/hands.h"

#include <nlohmann/json.hpp>
#include <set>

#include "controls/desktop.h"

namespace quillmark {

namespace {

void ReplaceSelection(TextBox& box, std::string_view with) {
  std::string text = box.Text();
  const auto start = static_cast<std::size_t>(box.SelectionStart());
  text.replace(start, static_cast<std::size_t>(box.SelectionLength()), with);
  if (box.MaxLength() > 0 && text.size() > static_cast<std::size_t>(box.MaxLength())) return;
  box.Edit(text, static_cast<int>(start + with.size()), 0);
}

/// Removes what is marked, or else the character at `place`, if there is one.
void Remove(TextBox& box, int place) {
  const bool isThere = place >= 0 && place < static_cast<int>(box.Text().size());
  if (box.SelectionLength() == 0 && isThere) box.SelectText(place, 1);
  if (box.SelectionLength() > 0) ReplaceSelection(box, {});
}

/// What a toolkit's line does by itself with a key that the control has no use for.
void EditByKey(TextBox& box, Key key) {
  if (!box.Reachable()) return;
  const int caret = box.SelectionStart() + box.SelectionLength();
  if (key.code == KeyCode::Character) {
    ReplaceSelection(box, std::string(1, box.Typed(key.character)));
  } else if (key.code == KeyCode::Backspace) {
    Remove(box, box.SelectionStart() - 1);
  } else if (key.code == KeyCode::Delete) {
    Remove(box, box.SelectionStart());
  } else if (key.code == KeyCode::Left || key.code == KeyCode::Right) {
    box.SelectText(key.code == KeyCode::Left ? caret - 1 : caret + 1, 0);
  }
}

}  // namespace

CommandError NotFor(const Control& control) {
  return CommandError("not for a " + std::string(KindName(control.Kind())));
}

bool IsMenu(const Control& control) {
  return control.Kind() == ControlKind::PopupMenu || control.Kind() == ControlKind::MenuEntry;
}

bool HasCaption(const Control& control) {
  static const std::set<ControlKind> kinds = {ControlKind::Label,        ControlKind::Button,
                                              ControlKind::OptionButton, ControlKind::CheckBox,
                                              ControlKind::Frame,        ControlKind::MenuEntry};
  return kinds.contains(control.Kind());
}

bool Hands::Click(Control& control) {
  static const std::set<ControlKind> kinds = {ControlKind::Button, ControlKind::OptionButton,
                                              ControlKind::CheckBox};
  if (!kinds.contains(control.Kind())) throw NotFor(control);
  return PressMouse(control, MouseButton::Left);
}

bool Hands::Type(TextBox& box, const std::string& text) {
  if (!Reach(box)) return false;
  PlaceCaret(box, true);
  return text.empty() ? PressKey(box, {KeyCode::Delete}) : TypeCharacters(box, text);
}

bool Hands::Append(TextBox& box, const std::string& text) {
  if (!Reach(box)) return false;
  PlaceCaret(box, false);
  return TypeCharacters(box, text);
}

bool Hands::TypeCharacters(TextBox& box, const std::string& text) {
  for (const char character : text) PressKey(box, {KeyCode::Character, character});
  return true;
}

bool Hands::PressMouse(Control& control, MouseButton button) {
  if (IsMenu(control)) throw NotFor(control);
  const bool left = button == MouseButton::Left;
  if (auto* check = dynamic_cast<CheckBox*>(&control)) {
    return check->MousePress(button) && (!left || check->Flip());
  }
  if (auto* list = dynamic_cast<ListBox*>(&control)) {
    const bool pressed = list->MousePress(button);
    if (pressed) list->MouseRelease(button);
    return pressed;
  }
  if (auto* box = dynamic_cast<TextBox*>(&control); box && button != MouseButton::Right) {
    return box->Edit(box->Text(), box->SelectionStart() + box->SelectionLength(), 0);
  }
  if (auto* view = dynamic_cast<ListView*>(&control); view && left) return view->ClickBeside();
  if (auto* pressed = dynamic_cast<Button*>(&control); pressed && left) return pressed->Press();
  if (auto* option = dynamic_cast<OptionButton*>(&control); option && left) return option->Press();
  if (!control.Reachable()) return false;
  TheDesktop().RunAct(control.FullName(), [&] {
    TheDesktop().ClosePopup();
    TheDesktop().Raise(control.Owner());
    control.TakeFocus();
  });
  return true;
}

bool Hands::PressKey(Control& control, Key key) {
  if (!control.TakesFocus()) throw NotFor(control);
  bool used = false;
  if (!control.KeyDown(key, used)) return false;
  const bool space = key.code == KeyCode::Character && key.character == ' ';
  if (auto* box = dynamic_cast<TextBox*>(&control); box && !used) EditByKey(*box, key);
  if (auto* check = dynamic_cast<CheckBox*>(&control); check && space && !used) check->Flip();
  if (auto* button = dynamic_cast<Button*>(&control); button && space && !used) button->Press();
  if (auto* option = dynamic_cast<OptionButton*>(&control); option && space && !used) {
    option->Press();
  }
  control.KeyUp(key);
  return true;
}

void Hands::PlaceCaret(TextBox& box, bool markAll) {
  const int end = static_cast<int>(box.Text().size());
  box.Edit(box.Text(), markAll ? 0 : end, markAll ? end : 0);
}

bool Hands::Paste(TextBox& box, const std::string& text) {
  const std::size_t room =
      box.MaxLength() > 0 ? static_cast<std::size_t>(box.MaxLength()) : text.size();
  const std::string pasted = text.substr(0, room);
  return box.Edit(pasted, static_cast<int>(pasted.size()), 0);
}

bool Hands::Select(Control& control, int row) {
  if (auto* view = dynamic_cast<ListView*>(&control)) return view->ClickRow(row);
  auto& rows = As<TextRows>(control);
  if (!rows.Reachable() || row < 0 || row >= rows.Count()) return false;
  auto* const list = dynamic_cast<ListBox*>(&control);
  if (list != nullptr) list->MousePress(MouseButton::Left);
  rows.Choose(row);
  if (list != nullptr) list->MouseRelease(MouseButton::Left);
  return true;
}

Sight Hands::See(const Control& control) {
  Sight sight = {control.Enabled(), control.Visible(), control.HasFocus()};
  if (HasCaption(control)) sight.caption = control.Caption();
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) {
    sight.text = box->Text();
    sight.selection = {box->SelectionStart(), box->SelectionLength()};
  } else if (const auto* check = dynamic_cast<const CheckBox*>(&control)) {
    sight.ticked = check->Ticked();
  } else if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
    sight.ticked = option->On();
  } else if (const auto* list = dynamic_cast<const TextRows*>(&control)) {
    sight.rows.emplace();
    for (const std::string& text : list->Rows()) sight.rows->push_back({{text}});
    sight.row = list->Row();
  } else if (const auto* view = dynamic_cast<const ListView*>(&control)) {
    sight.columns = view->Columns();
    sight.rows = view->Rows();
    sight.row = view->Row();
  }
  return sight;
}

Json Hands::Describe(const Control& control) {
  const Sight sight = See(control);
  Json object = {{"kind", std::string(KindName(control.Kind()))},
                 {"enabled", sight.enabled},
                 {"visible", sight.visible},
                 {"reachable", Reach(control)},
                 {"focus", sight.focus}};
  if (sight.caption) object["caption"] = TextOfBytes(*sight.caption);
  if (sight.text) {
    object["text"] = TextOfBytes(*sight.text);
    object["selection"] = sight.selection;
  }
  if (sight.ticked) object["value"] = *sight.ticked ? 1 : 0;
  if (!sight.rows) return object;
  Json rows = Json::array();
  Json icons = Json::array();
  for (const ListViewRow& row : *sight.rows) {
    Json cells = Json::array();
    for (const std::string& cell : row.cells) cells.push_back(TextOfBytes(cell));
    rows.push_back(sight.columns ? cells : cells.front());
    icons.push_back(row.icon);
  }
  if (sight.columns) object["columns"] = Json::array();
  for (const Column& column : sight.columns.value_or(std::vector<Column>())) {
    object["columns"].push_back({{"caption", TextOfBytes(column.caption)},
                                 {"shown", column.width > 0},
                                 {"width", column.width}});
  }
  object["rows"] = rows;
  if (sight.columns) object["icons"] = icons;
  object["row"] = sight.row;
  return object;
}

bool Hands::SeeTheSame(const Control& control, Hands& others) {
  return Reach(control) == others.Reach(control) && See(control) == others.See(control);
}

Json Hands::DescribeForm(const Form& form) {
  const Place& place = form.Position();
  return {{"shown", form.Shown()},
          {"modal", form.Modal()},
          {"topmost", form.Topmost()},
          {"caption", TextOfBytes(form.Caption())},
          {"place", {place.left, place.top, place.width, place.height}}};
}

}  // namespace quillmark
