#include "tools/script/command_line.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/script_model.h"
#include "tools/script/script_value.h"

namespace quillmark {
namespace {

[[noreturn]] void Refuse(const std::string& text) { throw Trouble(kUsage, text); }

void TakeGame(Arguments& arguments, const std::string& value) {
  if (value != "tr4" && value != "tr5") Refuse("--game is tr4 or tr5, not '" + value + "'");
  arguments.game = value == "tr4" ? kTr4 : kTr5;
}

void TakeLevel(Arguments& arguments, const std::string& value) {
  int level = -1;
  const char* end = value.data() + value.size();
  const auto [stop, error] = std::from_chars(value.data(), end, level);
  if (error != std::errc() || stop != end || level < 0) {
    Refuse("--level is a number from 0, not '" + value + "'");
  }
  arguments.level = level;
}

struct Option {
  std::string_view name;
  bool hasValue;
  void (*take)(Arguments& arguments, const std::string& value);
};

constexpr std::array<Option, 6> kOptions = {
    {{"--game", true, TakeGame},
     {"--level", true, TakeLevel},
     {"-o", true, [](Arguments& arguments, const std::string& value) { arguments.output = value; }},
     {"--take", true,
      [](Arguments& arguments, const std::string& value) { arguments.take = value; }},
     {"--force", false, [](Arguments& arguments, const std::string&) { arguments.force = true; }},
     {"--json", false, [](Arguments& arguments, const std::string&) { arguments.json = true; }}}};

const Option& FindOption(const std::string& word, std::string_view known) {
  const std::string list = " " + std::string(known) + " ";
  const auto* const option = std::find_if(kOptions.begin(), kOptions.end(),
                                          [&](const Option& one) { return one.name == word; });
  if (option == kOptions.end() || list.find(" " + word + " ") == std::string::npos) {
    Refuse("there is no option " + word + " here");
  }
  return *option;
}

}  // namespace

Arguments ReadArguments(const std::vector<std::string>& words, std::string_view options,
                        std::size_t count) {
  Arguments arguments;
  bool optionsEnded = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (optionsEnded || word.size() < 2 || word.front() != '-') {
      arguments.positional.push_back(word);
    } else if (word == "--") {
      optionsEnded = true;
    } else {
      const Option& option = FindOption(word, options);
      if (option.hasValue && i + 1 == words.size()) Refuse(word + " needs a value behind it");
      option.take(arguments, option.hasValue ? words[++i] : std::string());
    }
  }
  if (arguments.positional.size() != count) {
    Refuse(std::to_string(count) + (count == 1 ? " path is" : " paths are") + " needed, not " +
           std::to_string(arguments.positional.size()));
  }
  return arguments;
}

}  // namespace quillmark
