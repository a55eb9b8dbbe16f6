#include "ui/key_events.h"

#include <array>
#include <utility>

#include "ui/ansi_text.h"

namespace quillmark {
namespace {

constexpr std::array kKeys = {
    std::pair{Qt::Key_Backspace, KeyCode::Backspace},
    std::pair{Qt::Key_Tab, KeyCode::Tab},
    std::pair{Qt::Key_Return, KeyCode::Enter},
    std::pair{Qt::Key_Enter, KeyCode::Enter},
    std::pair{Qt::Key_Escape, KeyCode::Escape},
    std::pair{Qt::Key_PageUp, KeyCode::PageUp},
    std::pair{Qt::Key_PageDown, KeyCode::PageDown},
    std::pair{Qt::Key_End, KeyCode::End},
    std::pair{Qt::Key_Home, KeyCode::Home},
    std::pair{Qt::Key_Left, KeyCode::Left},
    std::pair{Qt::Key_Up, KeyCode::Up},
    std::pair{Qt::Key_Right, KeyCode::Right},
    std::pair{Qt::Key_Down, KeyCode::Down},
    std::pair{Qt::Key_Delete, KeyCode::Delete},
};

bool TypesCharacter(const QKeyEvent& event) {
  return !event.text().isEmpty() && event.text().front().isPrint();
}

}  // namespace

Key KeyOf(const QKeyEvent& event) {
  for (const auto& [qtKey, code] : kKeys) {
    if (event.key() == qtKey) return {code};
  }
  if (TypesCharacter(event)) return {KeyCode::Character, ToAnsi(event.text()).front()};
  return {KeyCode::Other};
}

bool IsForTheLogic(const QKeyEvent& event) {
  const Qt::KeyboardModifiers commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  const bool typedWithThem = TypesCharacter(event) && (event.modifiers() & Qt::AltModifier) &&
                             (event.modifiers() & Qt::ControlModifier);
  if ((event.modifiers() & commands) && !typedWithThem) return false;
  const KeyCode code = KeyOf(event).code;
  return code != KeyCode::Other && code != KeyCode::PageUp && code != KeyCode::PageDown;
}

std::optional<MouseButton> ButtonOf(Qt::MouseButton button) {
  switch (button) {
    case Qt::LeftButton:
      return MouseButton::Left;
    case Qt::RightButton:
      return MouseButton::Right;
    case Qt::MiddleButton:
      return MouseButton::Middle;
    default:
      return std::nullopt;
  }
}

}  // namespace quillmark
