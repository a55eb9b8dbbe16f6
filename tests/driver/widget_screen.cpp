#include "driver/widget_screen.h"

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <map>

#include "ui/ansi_text.h"

namespace quillmark {

namespace {

void Press(QAbstractButton& button) { SendClick(button, button.rect().center()); }

BoxIcon IconOf(const QMessageBox& box) {
  static const std::map<QMessageBox::Icon, BoxIcon> icons = {
      {QMessageBox::NoIcon, BoxIcon::None},
      {QMessageBox::Critical, BoxIcon::Critical},
      {QMessageBox::Question, BoxIcon::Question},
      {QMessageBox::Information, BoxIcon::Information},
      {QMessageBox::Warning, BoxIcon::Warning}};
  return icons.at(box.icon());
}

BoxButton MeaningOf(const QAbstractButton& button) {
  static const std::map<QString, BoxButton> captions = {
      {"OK", BoxButton::OK},         {"Yes", BoxButton::Yes}, {"No", BoxButton::No},
      {"Cancel", BoxButton::Cancel}, {"End", BoxButton::End}, {"Continue", BoxButton::Continue}};
  return captions.at(button.text().remove('&'));
}

OpenBox Shown(QMessageBox& box) {
  std::map<BoxButton, QAbstractButton*> buttons;
  for (QAbstractButton* button : box.buttons()) buttons[MeaningOf(*button)] = button;
  MessageBox shown = {IconOf(box), {}, ToAnsi(box.windowTitle()), ToAnsi(box.text())};
  for (const auto& [meaning, button] : buttons) shown.buttons.push_back(meaning);
  return {PromptOf(shown), [buttons](const std::string& answer, const std::string& /*text*/) {
            for (const auto& [meaning, button] : buttons) {
              if (answer != Pressing(meaning)) continue;
              Press(*button);
              return true;
            }
            return false;
          }};
}

OpenBox Shown(QInputDialog& dialog) {
  auto& line = *dialog.findChild<QLineEdit*>();
  auto& buttons = *dialog.findChild<QDialogButtonBox*>();
  const InputBox shown = {ToAnsi(dialog.labelText()), ToAnsi(dialog.windowTitle()),
                          ToAnsi(dialog.textValue())};
  return {PromptOf(shown), [&line, &buttons](const std::string& answer, const std::string& text) {
            if (answer == "reply") {
              line.selectAll();
              if (text.empty()) SendKey(line, {KeyCode::Delete});
              for (const char character : text) SendKey(line, {KeyCode::Character, character});
              Press(*buttons.button(QDialogButtonBox::Ok));
            } else if (answer == "cancel") {
              Press(*buttons.button(QDialogButtonBox::Cancel));
            }
            return answer == "reply" || answer == "cancel";
          }};
}

}  // namespace

void WidgetScreen::WaitFor(QWidget& window, const std::function<bool()>& over) {
  if (auto* box = qobject_cast<QMessageBox*>(&window)) {
    driver_.ServeBox(Shown(*box), over);
  } else if (auto* dialog = qobject_cast<QInputDialog*>(&window)) {
    driver_.ServeBox(Shown(*dialog), over);
  } else {
    driver_.ServeUntil(over);
  }
}

std::optional<std::string> WidgetScreen::AskFile(const FileRequest& request) {
  filter_ = request.filter;
  return QtScreen::AskFile(request);
}

std::optional<QString> WidgetScreen::AskNativeFileDialog(const FileDialog& dialog) {
  const auto path =
      driver_.AskText(PromptOf({dialog.save, ToAnsi(dialog.title), filter_}), "choose");
  if (!path) return std::nullopt;
  return QString::fromStdString(*path);
}

}  // namespace quillmark
