#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"

namespace quillmark {

/// Left, top, width and height in pixels.
struct Place {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
};

/// How a form starts.
struct FormDesign {
  std::string caption = {};
  int width = 400;
  int height = 300;
  bool modal = false;         ///< the program shows it modally
  bool escapeCloses = false;  ///< Escape closes it, as its frame does
  bool sizable = false;       ///< its border can be dragged, and it can fill the screen
  bool minimisable = false;   ///< a window that can be put aside; any other stays above its owner
  bool framed = true;         ///< has a title bar
};

/// A window as plain state: a named set of controls. A concrete form is a struct whose members are
/// its controls, under their own names.
///
/// A form is loaded before its controls count for anything: loading puts every control into its
/// design state and runs `onLoad`. Unloading takes it off the screen and throws its state away.
class Form {
 public:
  Form(std::string_view name, const FormDesign& design);
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  std::function<void()> onLoad;
  std::function<void()> onShow;    ///< each time that it is shown, even if it is on the screen
  std::function<void()> onUnload;  ///< before its state is thrown away
  std::function<void(const std::string& path)> onFileDropped;
  /// Which files it has a use for; all if there is none.
  std::function<bool(const std::string& path)> wantsFile;
  std::function<void()> onResize;  ///< the border was dragged, or code changed the size

  const std::string& Name() const { return name_; }
  const FormDesign& StartState() const { return design_; }
  const std::string& Caption() const { return caption_; }
  /// How often the caption was set, also to what it was before.
  int CaptionsSet() const { return captionsSet_; }
  void SetCaption(std::string_view caption);
  const Place& Position() const { return place_; }
  void MoveTo(int left, int top);
  void SetSize(int width, int height);
  bool Maximised() const { return maximised_; }
  /// Notes what the window's frame did; no act by itself.
  void SetMaximised(bool maximised) { maximised_ = maximised; }

  bool Loaded() const { return loaded_; }
  bool Shown() const { return shown_; }
  bool Modal() const { return modal_; }
  bool Topmost() const { return topmost_; }

  /// Loads it if it is not loaded. A fault of its load leaves it unloaded.
  void Load();
  /// Loads and shows it without blocking.
  void Show();
  /// Loads and shows it; returns when it has been unloaded. While it is open only its own controls
  /// can be reached. Throws the invalid value fault if it is shown already.
  void ShowModal();
  /// Takes it off the screen and unloads it; nothing happens if it is not loaded.
  void Unload();
  /// Keeps it above all other windows from now on, without moving it.
  void KeepOnTop();

  /// Acts of a person on the window's frame; false if it can't be reached.
  bool Close();
  bool DragTo(int width, int height);
  /// A person drops a file on the window; false too for a file that the form has no use for. The
  /// path is UTF-8.
  bool DropFile(const std::string& path);
  /// Whether it would take that file if it were dropped now.
  bool TakesFile(const std::string& path) const;

  /// Shown, and not behind a modal one.
  bool InFront() const;

  const std::vector<Control*>& Controls() const { return controls_; }

  /// The control that has the focus; null if none can have it.
  Control* Focus() const;
  void SetFocus(Control* control);
  /// Moves the focus to the next control that can be reached, in tab order, or to the one before.
  void StepFocus(int direction);

  /// The buttons that Enter and Escape press where the control with the focus has no use for them.
  Control* defaultButton = nullptr;
  Control* cancelButton = nullptr;
  /// Where Escape leads from any other control of a form without a cancel button; null for nowhere.
  Control* escapeGoal = nullptr;

 private:
  friend class Control;
  friend class Desktop;
  void PutOnScreen(bool modal);
  void ThrowStateAway();
  /// The next control in tab order from the one at `start` that can take the focus.
  Control* NextFocus(std::ptrdiff_t start, int direction) const;

  std::string name_;
  FormDesign design_;
  std::string caption_;
  int captionsSet_ = 0;
  Place place_;
  bool loaded_ = false;
  bool shown_ = false;
  bool modal_ = false;
  bool topmost_ = false;
  bool maximised_ = false;
  std::vector<Control*> controls_;
  Control* focus_ = nullptr;
};

/// Centres a form on the screen.
void CenterForm(Form& form);

}  // namespace quillmark
