#include "driver/driver.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <map>
#include <string_view>
#include <utility>

#include "driver/program.h"
#include "frame/startup.h"
#include "tools/listing.h"

namespace quillmark {

namespace {

template <class Value>
using Names = std::vector<std::pair<std::string_view, Value>>;

const Names<BoxIcon> kIcons = {{"none", BoxIcon::None},
                               {"critical", BoxIcon::Critical},
                               {"question", BoxIcon::Question},
                               {"information", BoxIcon::Information},
                               {"warning", BoxIcon::Warning}};
const Names<BoxButton> kButtons = {{"OK", BoxButton::OK},   {"Yes", BoxButton::Yes},
                                   {"No", BoxButton::No},   {"Cancel", BoxButton::Cancel},
                                   {"End", BoxButton::End}, {"Continue", BoxButton::Continue}};
const Names<MouseButton> kMouseButtons = {
    {"left", MouseButton::Left}, {"right", MouseButton::Right}, {"middle", MouseButton::Middle}};
const Names<KeyCode> kKeys = {
    {"Delete", KeyCode::Delete}, {"Enter", KeyCode::Enter},         {"Tab", KeyCode::Tab},
    {"Left", KeyCode::Left},     {"Right", KeyCode::Right},         {"Up", KeyCode::Up},
    {"Down", KeyCode::Down},     {"Backspace", KeyCode::Backspace}, {"Escape", KeyCode::Escape}};

template <class Value>
Value Named(const Names<Value>& names, std::string_view name) {
  for (const auto& [known, value] : names) {
    if (known == name) return value;
  }
  throw CommandError("unknown name: " + std::string(name));
}

template <class Value>
std::string NameOf(const Names<Value>& names, Value wanted) {
  for (const auto& [name, value] : names) {
    if (value == wanted) return std::string(name);
  }
  return {};
}

Form& FormNamed(const std::string& name) {
  if (Form* form = TheDesktop().FindForm(name)) return *form;
  throw CommandError("unknown form: " + name);
}

/// The control of "FORM.CONTROL" or "FORM.CONTROL(INDEX)".
Control& ControlNamed(const std::string& name) {
  const auto dot = std::min(name.find('.'), name.size());
  for (Control* control : FormNamed(name.substr(0, dot)).Controls()) {
    if (dot < name.size() && control->FullName() == name.substr(dot + 1)) return *control;
  }
  throw CommandError("unknown control: " + name);
}

Key ReadKey(CommandLine& line) {
  if (!line.AtQuote()) return {Named(kKeys, line.Word())};
  const std::string character = line.Bytes();
  if (character.size() != 1) throw CommandError("a key types one character");
  return {KeyCode::Character, character.front()};
}

bool ShowAsTheProgramWould(Form& form) {
  TheDesktop().RunAct(form.Name(),
                      [&] { form.StartState().modal ? form.ShowModal() : form.Show(); });
  return true;
}

bool ChooseEntry(Hands& hands, Control& control) {
  return hands.ChooseEntry(As<MenuEntry>(control));
}

bool Enable(Hands& /*hands*/, Control& control) {
  TheDesktop().RunAct(control.FullName(), [&] {
    control.SetVisible(true);
    control.SetEnabled(true);
  });
  return true;
}

bool LetTimerElapse() {
  Timer* const timer = TheDesktop().RunningTimer();
  if (timer != nullptr) timer->Elapse();
  return timer != nullptr;
}

/// An act on one control; the words behind the control's name are read before anything happens.
using ControlAct = std::function<bool(Hands&, Control&)>;
using ControlActReader = ControlAct (*)(CommandLine& line);

ControlAct TypeAct(CommandLine& line, bool replaces) {
  return [text = line.Bytes(), replaces](Hands& hands, Control& control) {
    return hands.Type(As<TextBox>(control), text, replaces);
  };
}

bool IsMenu(const Control& control) {
  return control.Kind() == ControlKind::PopupMenu || control.Kind() == ControlKind::MenuEntry;
}

[[noreturn]] void ThrowNotFor(const Control& control) {
  throw CommandError("not for a " + std::string(KindName(control.Kind())));
}

ControlAct KeyAct(Key key) {
  return [key](Hands& hands, Control& control) {
    if (!control.TakesFocus()) ThrowNotFor(control);
    return hands.PressKey(control, key);
  };
}

const std::map<std::string, ControlActReader, std::less<>> kControlActs = {
    {"click", [](CommandLine&) -> ControlAct { return &Hands::Click; }},
    {"mouse",
     [](CommandLine& line) -> ControlAct {
       return [button = Named(kMouseButtons, line.Word())](Hands& hands, Control& control) {
         if (IsMenu(control)) ThrowNotFor(control);
         return hands.PressMouse(control, button);
       };
     }},
    {"space",
     [](CommandLine&) {
       return KeyAct({KeyCode::Character, ' '});
     }},
    {"key", [](CommandLine& line) { return KeyAct(ReadKey(line)); }},
    {"type", [](CommandLine& line) { return TypeAct(line, true); }},
    {"append", [](CommandLine& line) { return TypeAct(line, false); }},
    {"paste",
     [](CommandLine& line) -> ControlAct {
       return [text = line.Bytes()](Hands& hands, Control& control) {
         return hands.Paste(As<TextBox>(control), text);
       };
     }},
    {"select",
     [](CommandLine& line) -> ControlAct {
       return [row = line.Number()](Hands& hands, Control& control) {
         return hands.Select(control, row);
       };
     }},
    {"menu", [](CommandLine&) -> ControlAct { return ChooseEntry; }},
    {"enable", [](CommandLine&) -> ControlAct { return Enable; }},
};

}  // namespace

OpenBox Driver::MessagePrompt(const MessageBox& box, std::function<void(BoxButton)> press) {
  std::string buttons;
  for (const BoxButton button : box.buttons) {
    buttons += (buttons.empty() ? "" : ",") + NameOf(kButtons, button);
  }
  return {"box " + NameOf(kIcons, box.icon) + " " + buttons + " " + Quoted(box.title) + " " +
              Quoted(box.text),
          [choices = box.buttons, press = std::move(press)](const std::string& command,
                                                            CommandLine& line) {
            if (command != "press") return false;
            const BoxButton button = Named(kButtons, line.Word());
            line.ExpectEnd();
            if (std::find(choices.begin(), choices.end(), button) == choices.end()) return false;
            press(button);
            return true;
          }};
}

OpenBox Driver::InputPrompt(const InputBox& box, std::function<void(std::string)> reply,
                            std::function<void()> cancel) {
  return {"input " + Quoted(box.title) + " " + Quoted(box.prompt) + " " + Quoted(box.text),
          [reply = std::move(reply), cancel = std::move(cancel)](const std::string& command,
                                                                 CommandLine& line) {
            if (command == "reply") reply(line.Bytes());
            if (command == "cancel") cancel();
            return command == "reply" || command == "cancel";
          }};
}

OpenBox Driver::FilePrompt(const FileRequest& request, std::function<void(std::string)> choose,
                           std::function<void()> cancel) {
  return {std::string("file ") + (request.save ? "save " : "open ") + Quoted(request.title) + " " +
              Quoted(request.filter),
          [choose = std::move(choose), cancel = std::move(cancel)](const std::string& command,
                                                                   CommandLine& line) {
            if (command == "choose") choose(line.Text());
            if (command == "cancel") cancel();
            return command == "choose" || command == "cancel";
          }};
}

int Driver::Run() {
  StartProcess();
  ServeUntil([] { return false; });
  std::cout << "ended" << std::endl;
  return EXIT_SUCCESS;
}

void Driver::ServeUntil(const std::function<bool()>& done) {
  hands_.Settle();
  for (; !done() && !TheDesktop().Ended(); hands_.Settle()) {
    std::cout << (box_ == nullptr ? "ready" : box_->prompt) << std::endl;
    std::string input;
    if (!std::getline(std::cin, input)) input = "quit";
    try {
      Obey(input);
    } catch (const CommandError& error) {
      std::cout << "error: " << error.what() << "\n";
    }
  }
}

void Driver::ServeBox(const OpenBox& box, const std::function<bool()>& done) {
  const OpenBox* const behind = std::exchange(box_, &box);
  ServeUntil(done);
  box_ = behind;
}

void Driver::Obey(const std::string& input) {
  CommandLine line(input);
  const std::string word = line.Word();
  if (word == "quit") {
    std::cout << std::flush;
    std::_Exit(EXIT_SUCCESS);
  }
  if (AnswerQuestion(word, line)) return;
  if (!Act(word, line)) std::cout << "refused\n";
}

bool Driver::AnswerQuestion(const std::string& word, CommandLine& line) {
  Json answer;
  if (word == "get") {
    answer = WholeControl(ControlNamed(line.Word()));
  } else if (word == "form") {
    answer = WholeForm(FormNamed(line.Word()));
  } else if (word == "forms") {
    answer = Json::array();
    for (const Form* form : TheDesktop().ShownForms()) answer.push_back(form->Name());
  } else if (word == "model") {
    answer = ListScript();
  } else if (word == "state") {
    answer = ProgramState();
  } else {
    return false;
  }
  line.ExpectEnd();
  std::cout << JsonLine(answer) << "\n";
  return true;
}

bool Driver::Act(const std::string& word, CommandLine& line) {
  if (word == "cancel") line.ExpectEnd();
  if (word == "press" || word == "reply" || word == "cancel" || word == "choose") {
    return box_ != nullptr && box_->answer(word, line);
  }
  const auto unlessBoxOpen = [this, &line](const auto& act) {
    line.ExpectEnd();
    return box_ == nullptr && act();
  };
  if (const auto known = kControlActs.find(word); known != kControlActs.end()) {
    Control& control = ControlNamed(line.Word());
    const ControlAct act = known->second(line);
    return unlessBoxOpen([&] { return act(hands_, control); });
  }
  if (word == "timer") return unlessBoxOpen(LetTimerElapse);
  if (word == "call") {
    const std::string operation = line.Word();
    return unlessBoxOpen([&] { return CallOperation(operation); });
  }
  if (word == "close" || word == "show" || word == "resize") {
    Form& form = FormNamed(line.Word());
    const int width = word == "resize" ? line.Number() : 0;
    const int height = word == "resize" ? line.Number() : 0;
    return unlessBoxOpen([&] {
      if (word == "resize") return hands_.Resize(form, width, height);
      return word == "close" ? hands_.Close(form) : ShowAsTheProgramWould(form);
    });
  }
  throw CommandError("unknown command: " + word);
}

Json Driver::WholeControl(const Control& control) {
  Json object = hands_.Describe(control);
  if (box_ != nullptr) object["reachable"] = false;
  return object;
}

Json Driver::WholeForm(const Form& form) {
  Json object = hands_.DescribeForm(form);
  object["controls"] = Json::object();
  for (const Control* control : form.Controls()) {
    object["controls"][control->FullName()] = WholeControl(*control);
  }
  return object;
}

}  // namespace quillmark
