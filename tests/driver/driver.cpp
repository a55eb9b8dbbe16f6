#include "driver/driver.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <iostream>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <tuple>
#include <utility>

#include "controls/control.h"
#include "controls/desktop.h"
#include "controls/form.h"
#include "controls/menus.h"
#include "controls/timer.h"
#include "core/script_model.h"
#include "editor/editor_form.h"
#include "frame/inventory.h"
#include "frame/settings.h"
#include "frame/startup.h"
#include "strings/language_files.h"
#include "tools/listing.h"

namespace quillmark {

namespace {

template <class Value>
using Names = std::map<std::string, Value, std::less<>>;

constexpr Key kSpace = {KeyCode::Character, ' '};
const Names<MouseButton> kMouseButtons = {
    {"left", MouseButton::Left}, {"right", MouseButton::Right}, {"middle", MouseButton::Middle}};
const Names<KeyCode> kKeyNames = {
    {"Delete", KeyCode::Delete}, {"Enter", KeyCode::Enter},         {"Tab", KeyCode::Tab},
    {"Left", KeyCode::Left},     {"Right", KeyCode::Right},         {"Up", KeyCode::Up},
    {"Down", KeyCode::Down},     {"Backspace", KeyCode::Backspace}, {"Escape", KeyCode::Escape}};

template <class Value>
const Value& Named(const Names<Value>& names, const std::string& name) {
  const auto found = names.find(name);
  if (found == names.end()) throw CommandError("unknown name: " + name);
  return found->second;
}

// What a command reads behind its word.

struct Path {
  std::string text;
};
struct Name {
  std::string text;
};

Key ReadKey(std::istream& line) {
  if ((line >> std::ws).peek() != '"') return {Named(kKeyNames, ReadWord(line))};
  const std::string character = ReadBytes(line);
  if (character.size() != 1) throw CommandError("a key types one character");
  return {KeyCode::Character, character.front()};
}

Form& FormNamed(const std::string& name) {
  if (Form* form = TheDesktop().FindForm(name)) return *form;
  throw CommandError("unknown form: " + name);
}

/// The control of "FORM.CONTROL" or "FORM.CONTROL(INDEX)".
Control& ControlNamed(const std::string& name) {
  const auto dot = std::min(name.find('.'), name.size());
  for (Control* control : FormNamed(name.substr(0, dot)).Controls()) {
    if (name.substr(dot) == "." + control->FullName()) return *control;
  }
  throw CommandError("unknown control: " + name);
}

/// What is kept of it until the act: texts, which are read as bytes, by value.
template <class What>
using Owned = std::conditional_t<std::is_const_v<std::remove_reference_t<What>>,
                                 std::remove_cvref_t<What>, What>;

template <class What>
What Read(std::istream& line) {
  if constexpr (std::is_same_v<What, int>) return ReadNumber(line);
  if constexpr (std::is_same_v<What, std::string>) return ReadBytes(line);
  if constexpr (std::is_same_v<What, Path>) return {ReadText(line)};
  if constexpr (std::is_same_v<What, Name>) return {ReadWord(line)};
  if constexpr (std::is_same_v<What, MouseButton>) return Named(kMouseButtons, ReadWord(line));
  if constexpr (std::is_same_v<What, Key>) return ReadKey(line);
  if constexpr (std::is_same_v<What, Form&>) return FormNamed(ReadWord(line));
  if constexpr (std::is_same_v<What, Control&>) return ControlNamed(ReadWord(line));
  if constexpr (std::is_same_v<What, TextBox&>) return As<TextBox>(ControlNamed(ReadWord(line)));
  if constexpr (std::is_same_v<What, MenuEntry&>)
    return As<MenuEntry>(ControlNamed(ReadWord(line)));
}

// What the commands do.

bool Print(const Json& answer) {
  PrintJson(std::cout, answer);
  std::cout << "\n";
  return true;
}

Json FormsShown() {
  Json names = Json::array();
  for (const Form* form : TheDesktop().ShownForms()) names.push_back(form->Name());
  return names;
}

Json State() {
  Json pool = Json::array();
  for (int i = 0; i < StringsMod.NumStrings; ++i) {
    if (static_cast<std::size_t>(i) == StringsMod.StringPool.size()) break;
    pool.push_back(TextOfBytes(StringsMod.StringPool[i]));
  }
  Json items = Json::array();
  for (const Tr5Item& item : Tr5Items) {
    if (item.Id == 0 && item.Name.empty()) continue;
    items.push_back({{"Id", item.Id.value()}, {"Name", TextOfBytes(item.Name)}});
  }
  const PopupMenu* const popup = TheDesktop().Popup();
  const auto [width, height] = TheDesktop().TheScreen().Size();
  return {{"ScriptPath", TRScript.ScriptPath},
          {"ScriptSaved", TRScript.ScriptSaved.value()},
          {"ClipboardFull", EditorMod.ClipboardFull.value()},
          {"StringPool", pool},
          {"pointer", static_cast<int>(TheDesktop().ThePointer())},
          {"screen", {width, height}},
          {"InterfaceFile", TextOfBytes(Settings.InterfaceFile)},
          {"Tr5Items", items},
          {"popup", popup ? Json(popup->Owner().Name() + "." + popup->FullName()) : Json()}};
}

bool ElapseTimer(Driver&) {
  Timer* const timer = TheDesktop().RunningTimer();
  if (timer != nullptr) timer->Elapse();
  return timer != nullptr;
}

bool Show(Driver&, Form& form) {
  const bool modal = form.StartState().modal;
  TheDesktop().RunAct(form.Name(), [&] { modal ? form.ShowModal() : form.Show(); });
  return true;
}

bool Enable(Driver&, Control& control) {
  TheDesktop().RunAct(control.FullName(), [&] {
    control.SetVisible(true);
    control.SetEnabled(true);
  });
  return true;
}

bool Call(Driver&, const Name& name) {
  for (const PublicOperation& operation : PublicOperations()) {
    if (operation.name != name.text) continue;
    TheDesktop().RunAct(name.text, operation.run);
    return true;
  }
  throw CommandError("unknown operation: " + name.text);
}

bool Quit(Driver&) {
  std::cout << std::flush;
  std::_Exit(EXIT_SUCCESS);
}

/// A command: reads what stands behind its word, and gives what then carries it out, which is
/// false if that was refused.
struct Command {
  std::function<std::function<bool()>(Driver& driver, std::istream& line)> read;
  bool takenByBoxes = false;
};

template <class Agent, class Routine, class... What>
std::function<bool()> ReadAct(Agent& agent, Routine act, [[maybe_unused]] std::istream& line) {
  const std::tuple<What...> what{Read<What>(line)...};  // braces read from left to right
  return [act, what, &agent] { return std::apply(act, std::tuple_cat(std::tie(agent), what)); };
}

template <class... What>
Command Act(bool (*act)(Driver&, What...)) {
  return {[act](Driver& driver, std::istream& line) {
    return ReadAct<Driver, decltype(act), Owned<What>...>(driver, act, line);
  }};
}

template <class... What>
Command Act(bool (Hands::*act)(What...)) {
  return {[act](Driver& driver, std::istream& line) {
    return ReadAct<Hands, decltype(act), Owned<What>...>(driver.TheHands(), act, line);
  }};
}

/// A command that is also taken while a box is open.
template <class... What>
Command Always(bool (*act)(Driver&, What...)) {
  Command command = Act(act);
  command.takenByBoxes = true;
  return command;
}

const Names<Command> kCommands = {
    {"click", Act(&Hands::Click)},
    {"mouse", Act(&Hands::PressMouse)},
    {"space", Act(+[](Driver& d, Control& c) { return d.TheHands().PressKey(c, kSpace); })},
    {"key", Act(&Hands::PressKey)},
    {"type", Act(&Hands::Type)},
    {"append", Act(&Hands::Append)},
    {"paste", Act(&Hands::Paste)},
    {"select", Act(&Hands::Select)},
    {"menu", Act(&Hands::ChooseEntry)},
    {"timer", Act(ElapseTimer)},
    {"close", Act(&Hands::Close)},
    {"resize", Act(&Hands::Resize)},
    {"show", Act(Show)},
    {"enable", Act(Enable)},
    {"call", Act(Call)},
    {"press",
     Always(+[](Driver& d, const Name& button) { return d.Answer("press " + button.text); })},
    {"reply", Always(+[](Driver& d, const std::string& text) { return d.Answer("reply", text); })},
    {"choose", Always(+[](Driver& d, const Path& path) { return d.Answer("choose", path.text); })},
    {"cancel", Always(+[](Driver& d) { return d.Answer("cancel"); })},
    {"get", Always(+[](Driver& d, Control& control) { return Print(d.WholeControl(control)); })},
    {"form", Always(+[](Driver& d, Form& form) { return Print(d.WholeForm(form)); })},
    {"forms", Always(+[](Driver&) { return Print(FormsShown()); })},
    {"model", Always(+[](Driver&) { return Print(ListScript()); })},
    {"state", Always(+[](Driver&) { return Print(State()); })},
    {"quit", Always(Quit)},
};

}  // namespace

std::string NameOf(BoxButton button) {
  constexpr std::array names = {"OK", "Yes", "No", "Cancel", "End", "Continue"};
  return names.at(static_cast<std::size_t>(button));
}

std::string PromptOf(const Message& box) {
  constexpr std::array icons = {"none", "critical", "question", "information", "warning"};
  std::string buttons;
  for (const BoxButton button : box.buttons) buttons += "," + NameOf(button);
  return std::string("box ") + icons.at(static_cast<std::size_t>(box.icon)) + " " +
         buttons.substr(1) + " " + Quoted(box.title) + " " + Quoted(box.text);
}

std::string PromptOf(const InputBox& box) {
  return "input " + Quoted(box.title) + " " + Quoted(box.prompt) + " " + Quoted(box.text);
}

std::string PromptOf(const FileRequest& request) {
  return (request.save ? "file save " : "file open ") + Quoted(request.title) + " " +
         Quoted(request.filter);
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

std::optional<std::string> Driver::AskText(const std::string& prompt, const std::string& answer) {
  std::optional<std::string> reply;
  bool closed = false;
  const auto take = [&](const std::string& given, const std::string& text) {
    if (given == answer) reply = text;
    closed = given == answer || given == "cancel";
    return closed;
  };
  ServeBox({prompt, take}, [&] { return closed; });
  return reply;
}

void Driver::Obey(const std::string& input) {
  std::istringstream line(input);
  const std::string word = ReadWord(line);
  const auto command = kCommands.find(word);
  if (command == kCommands.end()) throw CommandError("unknown command: " + word);
  const auto act = command->second.read(*this, line);
  ExpectEnd(line);
  const bool taken = box_ == nullptr || command->second.takenByBoxes;
  if (!taken || !act()) std::cout << "refused\n";
}

bool Driver::Answer(const std::string& answer, const std::string& text) {
  return box_ != nullptr && box_->answer(answer, text);
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
