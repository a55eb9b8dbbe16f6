#include "tools/script/field_text.h"

namespace quillmark {
namespace {

std::string FlagsText(std::int64_t bits) {
  std::string text;
  for (std::size_t bit = 0; bit < FlagNames().size(); ++bit) {
    if ((static_cast<std::uint64_t>(bits) >> bit & 1U) == 0) continue;
    text += (text.empty() ? "" : " ") + std::string(FlagNames()[bit]);
  }
  return text.empty() ? "none" : text;
}

std::string HexText(std::int64_t number) {
  constexpr std::string_view digits = "0123456789abcdef";
  std::string text;
  for (auto bits = static_cast<std::uint32_t>(number); bits != 0; bits >>= 4U) {
    text.insert(text.begin(), digits[bits & 0xFU]);
  }
  return "0x" + (text.empty() ? "0" : text);
}

std::string ReferredText(const ScriptValue& value, Meaning meaning, std::int64_t number) {
  if (meaning == Meaning::String && LoadedLanguages(value).empty()) return {};
  const auto entry =
      meaning == Meaning::FileName ? LevelFileName(value.model, number) : StringOf(value, number);
  if (!entry) return " (not there)";
  return " \"" + EscapedText(ShownPart(*entry)) + '"';
}

}  // namespace

std::string NumberText(const ScriptValue& value, Meaning meaning, std::int64_t number) {
  switch (meaning) {
    case Meaning::OnOff:
      return number == kOn ? "on" : "off";
    case Meaning::Hex:
      return HexText(number);
    case Meaning::Flags:
      return FlagsText(number);
    case Meaning::Kind:
      return std::string(KindNames()[static_cast<std::size_t>(number)]);
    case Meaning::String:
    case Meaning::FileName:
      return std::to_string(number) + ReferredText(value, meaning, number);
    case Meaning::Number:
    case Meaning::Combo:
      break;
  }
  return std::to_string(number);
}

std::string ExtensionText(std::string_view extension) {
  return EscapedText(extension.substr(0, extension.find_last_not_of('\0') + 1));
}

}  // namespace quillmark
