#include "driver/widget_screen.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <map>

#include "driver/widget_events.h"
#include "ui/ansi_text.h"

namespace quillmark {

namespace {

void Press(QAbstractButton& button) { SendClick(button, button.rect().center()); }

BoxIcon IconOf(const QMessageBox& box) {
  switch (box.icon()) {
    case QMessageBox::Critical:
      return BoxIcon::Critical;
    case QMessageBox::Question:
      return BoxIcon::Question;
    case QMessageBox::Information:
      return BoxIcon::Information;
    case QMessageBox::Warning:
      return BoxIcon::Warning;
    case QMessageBox::NoIcon:
      break;
  }
  return BoxIcon::None;
}

BoxButton MeaningOf(const QMessageBox& box, QAbstractButton& button) {
  switch (box.standardButton(&button)) {
    case QMessageBox::Ok:
      return BoxButton::OK;
    case QMessageBox::Yes:
      return BoxButton::Yes;
    case QMessageBox::No:
      return BoxButton::No;
    case QMessageBox::Cancel:
      return BoxButton::Cancel;
    default:
      return button.text() == QLatin1String("End") ? BoxButton::End : BoxButton::Continue;
  }
}

}  // namespace

OpenBox WidgetScreen::MessageOf(QMessageBox& box) {
  std::map<BoxButton, QAbstractButton*> buttons;
  for (QAbstractButton* button : box.buttons()) buttons[MeaningOf(box, *button)] = button;
  MessageBox shown;
  shown.icon = IconOf(box);
  shown.title = ToAnsi(box.windowTitle());
  shown.text = ToAnsi(box.text());
  shown.buttons.clear();
  for (const auto& [meaning, button] : buttons) shown.buttons.push_back(meaning);
  return Driver::MessagePrompt(shown, [buttons](BoxButton button) { Press(*buttons.at(button)); });
}

OpenBox WidgetScreen::InputOf(QInputDialog& dialog) {
  const InputBox shown = {ToAnsi(dialog.labelText()), ToAnsi(dialog.windowTitle()),
                          ToAnsi(dialog.textValue())};
  auto& line = *dialog.findChild<QLineEdit*>();
  auto& buttons = *dialog.findChild<QDialogButtonBox*>();
  const auto reply = [&line, &buttons](const std::string& text) {
    line.selectAll();
    if (text.empty()) SendKey(line, {KeyCode::Delete});
    for (const char character : text) SendKey(line, {KeyCode::Character, character});
    Press(*buttons.button(QDialogButtonBox::Ok));
  };
  return Driver::InputPrompt(shown, reply,
                             [&buttons] { Press(*buttons.button(QDialogButtonBox::Cancel)); });
}

void WidgetScreen::WaitFor(QWidget& window, const std::function<bool()>& over) {
  if (auto* box = qobject_cast<QMessageBox*>(&window)) {
    driver_.ServeBox(MessageOf(*box), over);
  } else if (auto* dialog = qobject_cast<QInputDialog*>(&window)) {
    driver_.ServeBox(InputOf(*dialog), over);
  } else {
    driver_.ServeUntil(over);
  }
}

std::optional<std::string> WidgetScreen::AskFile(const FileRequest& request) {
  request_ = request;
  return QtScreen::AskFile(request);
}

std::optional<QString> WidgetScreen::AskNativeFileDialog(const FileDialog& dialog) {
  std::optional<QString> path;
  bool closed = false;
  FileRequest shown = request_;
  shown.save = dialog.save;
  shown.title = ToAnsi(dialog.title);
  driver_.ServeBox(Driver::FilePrompt(
                       shown,
                       [&](const std::string& chosen) {
                         path = QString::fromStdString(chosen);
                         closed = true;
                       },
                       [&] { closed = true; }),
                   [&] { return closed; });
  return path;
}

}  // namespace quillmark
