#include "driver/widget_screen.h"

#include <QDialogButtonBox>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <array>
#include <map>

#include "controls/form.h"
#include "ui/ansi_text.h"

namespace quillmark {

namespace {

void Press(QAbstractButton& button) { SendClick(button, button.rect().center()); }

BoxIcon IconOf(const QMessageBox& box) {
  constexpr std::array icons = {BoxIcon::None, BoxIcon::Information, BoxIcon::Warning,
                                BoxIcon::Critical, BoxIcon::Question};  // by Qt's numbers
  return icons.at(static_cast<std::size_t>(box.icon()));
}

OpenBox Shown(QMessageBox& box, const std::map<BoxButton, std::string>& captions) {
  std::map<std::string, QAbstractButton*> buttons;
  for (QAbstractButton* button : box.buttons()) {
    std::string text = ToAnsi(button->text().remove('&'));
    for (const auto& [named, caption] : captions) {
      if (text == caption) text = NameOf(named);
    }
    buttons["press " + text] = button;
  }
  Message shown = {IconOf(box), {}, ToAnsi(box.windowTitle()), ToAnsi(box.text())};
  for (const BoxButton button : {BoxButton::OK, BoxButton::Yes, BoxButton::No, BoxButton::Cancel,
                                 BoxButton::End, BoxButton::Continue}) {
    if (buttons.contains("press " + NameOf(button))) shown.buttons.push_back(button);
  }
  return {PromptOf(shown), [buttons](const std::string& answer, const std::string& /*text*/) {
            const auto button = buttons.find(answer);
            if (button != buttons.end()) Press(*button->second);
            return button != buttons.end();
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
    driver_.ServeBox(Shown(*box, captions_), over);
  } else if (auto* dialog = qobject_cast<QInputDialog*>(&window)) {
    driver_.ServeBox(Shown(*dialog), over);
  } else {
    driver_.ServeUntil(over);
  }
}

BoxButton WidgetScreen::AskMessage(const Message& box) {
  captions_ = box.captions;
  return QtScreen::AskMessage(box);
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
