#include "driver/logical_hands.h"

#include "platform/desktop.h"

namespace quillmark {

namespace {

Json Texts(const std::vector<std::string>& texts) {
  Json array = Json::array();
  for (const std::string& text : texts) array.push_back(TextOfBytes(text));
  return array;
}

void DescribeListView(const ListView& view, Json& object) {
  Json columns = Json::array();
  for (const Column& column : view.Columns()) {
    columns.push_back({{"caption", TextOfBytes(column.caption)},
                       {"shown", column.width > 0},
                       {"width", column.width}});
  }
  Json rows = Json::array();
  Json icons = Json::array();
  for (const ListViewRow& row : view.Rows()) {
    rows.push_back(Texts(row.cells));
    icons.push_back(row.icon);
  }
  object["columns"] = columns;
  object["rows"] = rows;
  object["icons"] = icons;
  object["row"] = view.Row();
}

}  // namespace

bool Hands::Type(TextBox& box, std::string_view text, bool replaces) {
  if (!Reach(box)) return false;
  PlaceCaret(box, replaces);
  if (text.empty() && replaces) PressKey(box, {KeyCode::Delete});
  for (const char character : text) PressKey(box, {KeyCode::Character, character});
  return true;
}

bool HasCaption(ControlKind kind) {
  switch (kind) {
    case ControlKind::Label:
    case ControlKind::Button:
    case ControlKind::OptionButton:
    case ControlKind::CheckBox:
    case ControlKind::Frame:
    case ControlKind::MenuEntry:
      return true;
    default:
      return false;
  }
}

bool LogicalHands::Click(Control& control) {
  switch (control.Kind()) {
    case ControlKind::Button:
      return As<Button>(control).Press();
    case ControlKind::OptionButton:
      return As<OptionButton>(control).Press();
    default: {
      auto& box = As<CheckBox>(control);
      if (!box.MousePress(MouseButton::Left)) return false;
      box.Flip();
      return true;
    }
  }
}

bool LogicalHands::PressMouse(Control& control, MouseButton button) {
  const bool left = button == MouseButton::Left;
  switch (control.Kind()) {
    case ControlKind::CheckBox:
      return left ? Click(control) : As<CheckBox>(control).MousePress(button);
    case ControlKind::Button:
    case ControlKind::OptionButton:
      if (left) return Click(control);
      break;
    case ControlKind::ListBox: {
      auto& list = As<ListBox>(control);
      if (!list.MousePress(button)) return false;
      list.MouseRelease(button);
      return true;
    }
    case ControlKind::ListView:
      if (left) return As<ListView>(control).ClickBeside();
      break;
    case ControlKind::TextBox:
      if (button != MouseButton::Right) {
        auto& box = As<TextBox>(control);
        return box.Edit(box.Text(), box.SelectionStart() + box.SelectionLength(), 0);
      }
      break;
    default:
      break;
  }
  if (!control.Reachable()) return false;
  TheDesktop().RunAct(control.FullName(), [&] {
    TheDesktop().ClosePopup();
    TheDesktop().Raise(control.Owner());
    control.TakeFocus();
  });
  return true;
}

bool LogicalHands::PressKey(Control& control, Key key) {
  bool used = false;
  if (!control.KeyDown(key, used)) return false;
  const bool space = key.code == KeyCode::Character && key.character == ' ';
  if (!used) {
    switch (control.Kind()) {
      case ControlKind::TextBox:
        As<TextBox>(control).EditByKey(key);
        break;
      case ControlKind::CheckBox:
        if (space) As<CheckBox>(control).Flip();
        break;
      case ControlKind::Button:
      case ControlKind::OptionButton:
        if (space) Click(control);
        break;
      default:
        break;
    }
  }
  control.KeyUp(key);
  return true;
}

void LogicalHands::PlaceCaret(TextBox& box, bool markAll) {
  const int end = static_cast<int>(box.Text().size());
  box.Edit(box.Text(), markAll ? 0 : end, markAll ? end : 0);
}

bool LogicalHands::Paste(TextBox& box, std::string_view text) {
  if (box.MaxLength() > 0) text = text.substr(0, static_cast<std::size_t>(box.MaxLength()));
  return box.Edit(text, static_cast<int>(text.size()), 0);
}

bool LogicalHands::Select(Control& control, int row) {
  if (control.Kind() == ControlKind::ListView) return As<ListView>(control).ChooseByMouse(row);
  auto& rows = As<RowsControl>(control);
  if (!rows.Reachable() || row < 0 || row >= rows.Count()) return false;
  if (control.Kind() == ControlKind::ListBox) {
    As<ListBox>(control).MousePress(MouseButton::Left);
  }
  rows.Choose(row);
  if (control.Kind() == ControlKind::ListBox) {
    As<ListBox>(control).MouseRelease(MouseButton::Left);
  }
  return true;
}

Json LogicalHands::Describe(const Control& control) {
  Json object = {{"kind", std::string(KindName(control.Kind()))},
                 {"enabled", control.Enabled()},
                 {"visible", control.Visible()},
                 {"reachable", control.Reachable()},
                 {"focus", control.HasFocus()}};
  if (HasCaption(control.Kind())) object["caption"] = TextOfBytes(control.Caption());
  if (const auto* box = dynamic_cast<const TextBox*>(&control)) {
    object["text"] = TextOfBytes(box->Text());
    object["selection"] = {box->SelectionStart(), box->SelectionLength()};
  } else if (const auto* check = dynamic_cast<const CheckBox*>(&control)) {
    object["value"] = check->Ticked() ? 1 : 0;
  } else if (const auto* option = dynamic_cast<const OptionButton*>(&control)) {
    object["value"] = option->On() ? 1 : 0;
  } else if (const auto* rows = dynamic_cast<const RowsControl*>(&control)) {
    object["rows"] = Texts(rows->Rows());
    object["row"] = rows->Row();
  } else if (const auto* view = dynamic_cast<const ListView*>(&control)) {
    DescribeListView(*view, object);
  }
  return object;
}

Json LogicalHands::DescribeForm(const Form& form) {
  const Place& place = form.Position();
  return {{"shown", form.Shown()},
          {"modal", form.Modal()},
          {"topmost", form.Topmost()},
          {"caption", TextOfBytes(form.Caption())},
          {"place", {place.left, place.top, place.width, place.height}}};
}

}  // namespace quillmark
