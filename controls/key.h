#pragma once

namespace quillmark {

/// Keys by the numbers that the desktop gives them. `Character` stands for all that types
/// something.
enum class KeyCode {
  Character = 0,
  Backspace = 8,
  Tab = 9,
  Enter = 13,
  Escape = 27,
  PageUp = 33,
  PageDown = 34,
  End = 35,
  Home = 36,
  Left = 37,
  Up = 38,
  Right = 39,
  Down = 40,
  Delete = 46,
  Other = 255
};

struct Key {
  KeyCode code = KeyCode::Other;
  char character = '\0';  ///< the ANSI character that it types; only with `KeyCode::Character`
  /// Typed so soon behind the character before it that both belong to one word.
  bool goesOn = false;
};

enum class MouseButton { Left = 1, Right = 2, Middle = 4 };

}  // namespace quillmark
