#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/screen.h"
#include "platform/fault.h"
#include "platform/safe_write.h"

namespace quillmark {

class Control;

/// How a fault is told to a person: its text, and the captions of buttons that have them. The rest
/// of the box is the desktop's. `canGoOn` is false as long as it can only end the process.
using FaultTeller =
    std::function<Message(std::string_view operation, const Fault& fault, bool canGoOn)>;

/// How it is told that a content could not be put in its place: the text of the box.
using KeptTeller = std::function<std::string(const KeptContent& kept)>;

/// The program's name as it stands in titles of the platform's own boxes.
inline constexpr std::string_view kProgramName = "Quillmark";

/// Who is told of the end of acts, and must not throw. Routines that are left empty are passed
/// over.
struct ActListeners {
  std::function<void()> actIsOver;  ///< an act is over, and no box or file dialog is open
  std::function<void()> ending;     ///< the process comes to its end; once
};

/// The process's side of the display: which forms are shown, in which order, what waits, and the
/// one boundary around each act.
class Desktop {
 public:
  /// Names the display that everything goes to. It has to outlive its use.
  void Attach(Screen& screen) { screen_ = &screen; }
  /// Throws the invalid value fault while no display is attached.
  Screen& TheScreen() const;

  /// Runs one act: a fault that comes out of `act` is shown as the platform's message, named after
  /// `operation`, and the files that it left open are closed; then the screen is brought up to
  /// date. "End" and `ProcessEnd` end the process: `Ended` is true from then on, and nothing runs
  /// any more.
  void RunAct(std::string_view operation, const std::function<void()>& act);
  /// Names who is told from now on.
  void SetActListeners(ActListeners listeners) { listeners_ = std::move(listeners); }
  /// Whether a box or a file dialog waits for its answer.
  bool BoxIsOpen() const { return openBoxes_ > 0; }
  /// Until this is called a fault can only end the process.
  void StartUpIsOver() { startingUp_ = false; }
  bool Ended() const { return ended_; }
  /// Who words the box of a fault. Without one it shows the fault's own text.
  void TellFaultsBy(FaultTeller teller) { tellFault_ = std::move(teller); }
  /// Who words the box that says where a content is that could not be put in its place. Without one
  /// it shows the two paths alone.
  void TellKeptContentsBy(KeptTeller teller) { tellKept_ = std::move(teller); }

  /// Boxes of one button, and questions. See `Screen::AskMessage`.
  BoxButton Ask(const Message& box);
  void ShowError(std::string_view title, std::string_view text);
  /// Asks before something goes for good, and so stands on No; true for Yes.
  bool AskYesNo(std::string_view title, std::string_view text);
  std::optional<std::string> AskText(const InputBox& box);
  /// The chosen path; throws the fault of a cancelled dialog if there is none.
  std::string AskFile(const FileRequest& request);

  void OpenPopup(PopupMenu& menu);
  void ClosePopup();
  PopupMenu* Popup() const { return popup_; }

  void SetPointer(Pointer pointer);
  Pointer ThePointer() const { return pointer_; }

  void Start(Timer& timer);
  void Stop(Timer& timer);
  /// The timer that runs; null if none does.
  Timer* RunningTimer() const { return timer_; }

  /// Forms on the screen, the front one last.
  const std::vector<Form*>& ShownForms() const { return shown_; }
  /// The modal form that is open in front; null if none is.
  Form* ModalForm() const;
  void Raise(Form& form);

  /// Every form of the program.
  const std::vector<Form*>& Forms() const { return forms_; }
  Form* FindForm(std::string_view name) const;

  /// Controls that the screen has to show anew, each once, in the order of their first change.
  /// Taking them leaves none.
  std::vector<Control*> TakeChanged();

  /// Back to the state before the process began, for one more start in the same process: every form
  /// is unloaded without running anything, and the display is detached.
  void Reset();

 private:
  friend class Form;
  friend class Control;
  /// The display, brought up to date before something waits.
  Screen& BeforeWaiting();
  /// Throws `ProcessEnd` if the process came to its end while something waited.
  void AfterWaiting() const;
  /// What a box or a file dialog answers, which `ask` opens on the display that it is given.
  template <class Question>
  auto AnswerOf(const Question& ask);
  void ShowFault(std::string_view operation, const Fault& fault);
  /// Says of each content that could not be put in its place where it is.
  void TellKeptContents();
  void End();
  void SettleFocus();

  Screen* screen_ = nullptr;
  FaultTeller tellFault_;
  KeptTeller tellKept_;
  bool startingUp_ = true;
  bool ended_ = false;
  int openBoxes_ = 0;
  ActListeners listeners_;
  std::vector<Form*> forms_;
  std::vector<Form*> shown_;
  std::vector<Control*> changed_;
  PopupMenu* popup_ = nullptr;
  Timer* timer_ = nullptr;
  Pointer pointer_ = Pointer::Default;
};

/// Runs `steps`; a file dialog that is cancelled among them ends them without a word. Throws all
/// other faults on.
void UnlessCancelled(const std::function<void()>& steps);

/// The desktop of the process.
Desktop& TheDesktop();

}  // namespace quillmark
