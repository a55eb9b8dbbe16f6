#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quillmark {

class Form;
class PopupMenu;
class RowsControl;
class Timer;

enum class BoxIcon { None, Critical, Question, Information, Warning };
enum class BoxButton { OK, Yes, No, Cancel, End, Continue };

/// A message that is answered by one of its buttons.
struct Message {
  BoxIcon icon = BoxIcon::None;
  std::vector<BoxButton> buttons = {BoxButton::OK};
  std::string title;
  std::string text;
  /// The button that Enter presses; the display's choice where none is named.
  std::optional<BoxButton> defaultButton = {};
  /// Of "End" and "Continue", for which a desktop has no words of its own.
  std::map<BoxButton, std::string> captions = {};
};

/// A question that is answered by a line of text; `text` is what stands in it at first.
struct InputBox {
  std::string prompt;
  std::string title;
  std::string text;
};

/// A question for a file.
struct FileRequest {
  bool save = false;
  std::string title = {};
  /// Pairs of a caption and a pattern, all joined by "|": "SCRIPT.DAT|SCRIPT.DAT". Patterns ignore
  /// letter case.
  std::string filter = {};
  /// The path of the file or folder that the dialog stands on; empty for where the last dialog of
  /// its kind ended. To save over this file needs no question.
  std::string proposed = {};
};

enum class Pointer { Default = 0, Hourglass = 11 };

/// What needs a real display. Texts are ANSI bytes; paths are UTF-8.
///
/// The routines that ask wait until the person has answered. They may deliver other acts meanwhile,
/// and throw `ProcessEnd` if the process came to its end in the meantime.
class Screen {
 public:
  virtual ~Screen() = default;

  /// The button that was pressed. Closing a box by its frame presses Cancel, No, Continue or OK,
  /// whichever it has first in this order; a box with "End" alone ends.
  virtual BoxButton AskMessage(const Message& box) = 0;
  /// The text; nothing if it was cancelled.
  virtual std::optional<std::string> AskText(const InputBox& box) = 0;
  /// The full path that was chosen; nothing if it was cancelled.
  virtual std::optional<std::string> AskFile(const FileRequest& request) = 0;

  /// The form has come onto the screen, or has gone from it.
  virtual void FormShown(Form& form) = 0;
  virtual void FormHidden(Form& form) = 0;
  /// Caption, place or topmost word of a form that is shown have changed.
  virtual void FormChanged(Form& form) = 0;
  /// Returns when the form, which is shown, is not shown any more.
  virtual void WaitUntilHidden(Form& form) = 0;

  /// Opens the menu at the pointer and returns at once.
  virtual void OpenPopup(PopupMenu& menu) = 0;
  virtual void ClosePopup() = 0;

  /// Starts or stops a one-shot timer, which is to call its `Elapse`.
  virtual void StartTimer(Timer& timer) = 0;
  virtual void StopTimer(Timer& timer) = 0;

  virtual void SetPointer(Pointer pointer) = 0;
  /// Width and height in pixels.
  virtual std::pair<int, int> Size() const = 0;
  /// Width and height in pixels that `form` starts with on this display, where fonts and the size
  /// of the screen have a say in it; what it was designed with if nothing else is known.
  virtual std::pair<int, int> NaturalSize(const Form& form);

  /// Scrolls a list, brought up to date first, so that `row` is in sight.
  virtual void RevealRow(const RowsControl& /*list*/, int /*row*/) {}

  /// Brings every control that was marked as changed up to date. Called once per act, and before
  /// anything that waits.
  virtual void Refresh() = 0;
};

}  // namespace quillmark
