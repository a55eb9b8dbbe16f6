#include "controls/desktop.h"

#include <algorithm>
#include <exception>

#include "controls/control.h"
#include "controls/form.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"

namespace quillmark {

Desktop& TheDesktop() {
  static Desktop desktop;
  return desktop;
}

Screen& Desktop::TheScreen() const {
  if (screen_ == nullptr) throw Fault(FaultKind::InvalidValue, "no display is attached");
  return *screen_;
}

Screen& Desktop::BeforeWaiting() {
  Screen& screen = TheScreen();
  screen.Refresh();
  return screen;
}

void Desktop::AfterWaiting() const {
  if (ended_) throw ProcessEnd{};
}

template <class Question>
auto Desktop::AnswerOf(const Question& ask) {
  /// An answer may not come at all, but be an end of the process.
  struct Counted {
    explicit Counted(int& count) : count_(count) { ++count_; }
    ~Counted() { --count_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    int& count_;
  };
  ClosePopup();
  const Counted box(openBoxes_);
  auto answer = ask(BeforeWaiting());
  AfterWaiting();
  return answer;
}

void Desktop::RunAct(std::string_view operation, const std::function<void()>& act) {
  if (ended_) return;
  try {
    try {
      WithMemoryFaults(act);
    } catch (const Fault& fault) {
      ShowFault(operation, fault);
    } catch (const std::exception& trouble) {
      ShowFault(operation, Fault(FaultKind::InvalidArgument, trouble.what()));
    }
    TellKeptContents();
  } catch (const ProcessEnd&) {
    End();
  }
  if (ended_) return;
  SettleFocus();
  TheScreen().Refresh();
  if (!BoxIsOpen() && listeners_.actIsOver) listeners_.actIsOver();
}

void Desktop::ShowFault(std::string_view operation, const Fault& fault) {
  Message box;
  if (tellFault_) {
    box = tellFault_(operation, fault, !startingUp_);
  } else {
    box.text = fault.what();
    box.captions = {{BoxButton::End, "End"}, {BoxButton::Continue, "Continue"}};
  }
  box.icon = BoxIcon::Critical;
  box.title = kProgramName;
  box.buttons = {BoxButton::End};
  if (!startingUp_) box.buttons.push_back(BoxButton::Continue);
  const BoxButton answer = Ask(box);
  TellKeptContents();
  if (answer == BoxButton::End) throw ProcessEnd{};
  // An act that was broken off must not keep the file numbers that the next one needs, least of all
  // a save of what is still unsaved.
  Files.AbandonFiles();
}

void Desktop::TellKeptContents() {
  for (const KeptContent& kept : TakeKeptContents()) {
    const std::string text = tellKept_ ? tellKept_(kept) : kept.path + "\n" + kept.keptAt;
    Ask({BoxIcon::Warning, {BoxButton::OK}, std::string(kProgramName), text});
  }
}

void Desktop::End() {
  if (!ended_ && listeners_.ending) listeners_.ending();
  ended_ = true;
  Files.CloseAll();
}

void Desktop::SettleFocus() {
  for (Form* form : shown_) {
    Control* const focus = form->Focus();
    if (form->InFront() && (focus == nullptr || !focus->Reachable())) form->StepFocus(1);
  }
}

BoxButton Desktop::Ask(const Message& box) {
  Message shown = box;
  shown.title = ShownText(box.title);
  shown.text = ShownText(box.text);
  return AnswerOf([&](Screen& screen) { return screen.AskMessage(shown); });
}

void Desktop::ShowError(std::string_view title, std::string_view text) {
  Ask({BoxIcon::Critical, {BoxButton::OK}, std::string(title), std::string(text)});
}

bool Desktop::AskYesNo(std::string_view title, std::string_view text) {
  return Ask({BoxIcon::Question,
              {BoxButton::Yes, BoxButton::No},
              std::string(title),
              std::string(text),
              BoxButton::No}) == BoxButton::Yes;
}

std::optional<std::string> Desktop::AskText(const InputBox& box) {
  const InputBox shown = {ShownText(box.prompt), ShownText(box.title), ShownText(box.text)};
  return AnswerOf([&](Screen& screen) { return screen.AskText(shown); });
}

std::string Desktop::AskFile(const FileRequest& request) {
  FileRequest shown = request;
  shown.title = ShownText(request.title);
  const auto answer = AnswerOf([&](Screen& screen) { return screen.AskFile(shown); });
  if (!answer) {
    throw Fault(FaultKind::Cancelled,
                "the dialog was cancelled (number " + std::to_string(kCancelledNumber) + ")");
  }
  return *answer;
}

void Desktop::OpenPopup(PopupMenu& menu) {
  popup_ = &menu;
  TheScreen().Refresh();
  TheScreen().OpenPopup(menu);
}

void Desktop::ClosePopup() {
  if (popup_ == nullptr) return;
  popup_ = nullptr;
  TheScreen().ClosePopup();
}

void Desktop::SetPointer(Pointer pointer) {
  pointer_ = pointer;
  TheScreen().SetPointer(pointer);
}

void Desktop::Start(Timer& timer) {
  timer_ = &timer;
  TheScreen().StartTimer(timer);
}

void Desktop::Stop(Timer& timer) {
  if (timer_ != &timer) return;
  timer_ = nullptr;
  TheScreen().StopTimer(timer);
}

void UnlessCancelled(const std::function<void()>& steps) {
  try {
    steps();
  } catch (const Fault& fault) {
    if (fault.kind() != FaultKind::Cancelled) throw;
  }
}

Form* Desktop::ModalForm() const {
  const auto modal =
      std::find_if(shown_.rbegin(), shown_.rend(), [](const Form* form) { return form->Modal(); });
  return modal == shown_.rend() ? nullptr : *modal;
}

void Desktop::Raise(Form& form) {
  const auto place = std::find(shown_.begin(), shown_.end(), &form);
  if (place != shown_.end()) std::rotate(place, place + 1, shown_.end());
}

Form* Desktop::FindForm(std::string_view name) const {
  const auto found = std::find_if(forms_.begin(), forms_.end(),
                                  [&](const Form* form) { return form->Name() == name; });
  return found == forms_.end() ? nullptr : *found;
}

std::vector<Control*> Desktop::TakeChanged() {
  std::vector<Control*> changed;
  changed.swap(changed_);
  for (Control* control : changed) control->marked_ = false;
  return changed;
}

void Desktop::Reset() {
  for (Form* form : forms_) {
    form->loaded_ = form->shown_ = false;
    form->ThrowStateAway();
  }
  shown_.clear();
  TakeChanged();
  screen_ = nullptr;
  startingUp_ = true;
  ended_ = false;
  openBoxes_ = 0;
  listeners_ = {};
  popup_ = nullptr;
  timer_ = nullptr;
  pointer_ = Pointer::Default;
}

}  // namespace quillmark
