#include "controls/form.h"

#include <algorithm>
#include <tuple>

#include "controls/desktop.h"
#include "platform/fault.h"
#include "platform/log.h"

namespace quillmark {

Form::Form(std::string_view name, const FormDesign& design)
    : name_(name),
      design_(design),
      caption_(design.caption),
      place_{0, 0, design.width, design.height} {
  TheDesktop().forms_.push_back(this);
}

void Form::SetCaption(std::string_view caption) {
  caption_ = ShownText(caption);
  ++captionsSet_;
  if (shown_) TheDesktop().TheScreen().FormChanged(*this);
}

void Form::MoveTo(int left, int top) {
  place_.left = left;
  place_.top = top;
  if (shown_) TheDesktop().TheScreen().FormChanged(*this);
}

void Form::SetSize(int width, int height) {
  if (place_.width == width && place_.height == height) return;
  place_.width = width;
  place_.height = height;
  if (shown_) TheDesktop().TheScreen().FormChanged(*this);
  if (onResize) onResize();
}

void Form::Load() {
  if (loaded_) return;
  ThrowStateAway();
  if (Screen* const screen = TheDesktop().screen_) {
    std::tie(place_.width, place_.height) = screen->NaturalSize(*this);
  }
  loaded_ = true;
  try {
    if (onLoad) onLoad();
  } catch (...) {
    // Half a load is none: whoever shows the form next has to load it from the start.
    loaded_ = false;
    ThrowStateAway();
    throw;
  }
}

void Form::ThrowStateAway() {
  for (Control* control : controls_) control->Restart();
  caption_ = design_.caption;
  ++captionsSet_;
  place_ = {0, 0, design_.width, design_.height};
  focus_ = nullptr;
  topmost_ = maximised_ = modal_ = false;
}

void Form::PutOnScreen(bool modal) {
  Load();
  Desktop& desktop = TheDesktop();
  if (!shown_) {
    shown_ = true;
    modal_ = modal;
    desktop.shown_.push_back(this);
    SetFocus(NextFocus(-1, 1));
    desktop.TheScreen().FormShown(*this);
  }
  desktop.Raise(*this);
  if (onShow) onShow();
}

void Form::Show() { PutOnScreen(false); }

void Form::ShowModal() {
  if (shown_) throw Fault(FaultKind::InvalidValue, "the form " + name_ + " is shown already");
  PutOnScreen(true);
  Desktop& desktop = TheDesktop();
  if (shown_) desktop.BeforeWaiting().WaitUntilHidden(*this);
  desktop.AfterWaiting();
}

void Form::Unload() {
  if (!loaded_) return;
  if (onUnload) onUnload();
  Desktop& desktop = TheDesktop();
  if (shown_) {
    shown_ = false;
    std::erase(desktop.shown_, this);
    desktop.TheScreen().FormHidden(*this);
  }
  loaded_ = false;
  ThrowStateAway();
}

void Form::KeepOnTop() {
  topmost_ = true;
  if (shown_) TheDesktop().TheScreen().FormChanged(*this);
}

bool Form::Close() {
  if (!InFront() || !design_.framed) return false;
  TheDesktop().RunAct("Close the window", [this] { Unload(); });
  return true;
}

bool Form::DragTo(int width, int height) {
  if (!InFront() || !design_.sizable) return false;
  TheDesktop().RunAct("Resize the window", [&] { SetSize(width, height); });
  return true;
}

bool Form::DropFile(const std::string& path) {
  if (!TakesFile(path)) return false;
  TheDesktop().RunAct("Open the file", [&] { onFileDropped(path); });
  return true;
}

bool Form::TakesFile(const std::string& path) const {
  return InFront() && onFileDropped && (!wantsFile || wantsFile(path));
}

bool Form::InFront() const {
  const Form* modal = TheDesktop().ModalForm();
  return shown_ && (modal == nullptr || modal == this);
}

Control* Form::Focus() const { return focus_; }

void Form::SetFocus(Control* control) {
  if (focus_ == control) return;
  Control* const before = focus_;
  focus_ = control;
  if (before != nullptr) {
    before->HandleFocusLoss();
    before->MarkChanged();
  }
  if (control != nullptr) control->MarkChanged();
}

Control* Form::NextFocus(std::ptrdiff_t start, int direction) const {
  const auto size = static_cast<std::ptrdiff_t>(controls_.size());
  for (std::ptrdiff_t step = 1; step <= size; ++step) {
    const std::ptrdiff_t place = ((start + direction * step) % size + size) % size;
    Control* const control = controls_[static_cast<std::size_t>(place)];
    if (control->TakesFocus() && control->Reachable()) return control;
  }
  return nullptr;
}

void Form::StepFocus(int direction) {
  const auto here = std::find(controls_.begin(), controls_.end(), focus_);
  const auto start = here == controls_.end() ? std::ptrdiff_t{-1} : here - controls_.begin();
  Control* const next = NextFocus(start, direction);
  SetFocus(next);
  if (next != nullptr) next->HandleFocusStep();
}

void CenterForm(Form& form) {
  LogWrite("Centering form");
  const auto [width, height] = TheDesktop().TheScreen().Size();
  form.MoveTo((width - form.Position().width) / 2, (height - form.Position().height) / 2);
}

}  // namespace quillmark
