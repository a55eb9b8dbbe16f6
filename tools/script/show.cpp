#include "tools/script/show.h"

#include <iostream>

#include "tools/script/commands.h"
#include "tools/script/field_text.h"

namespace quillmark {
namespace {

/// Collects headings, which stand at the start of their line, and indented facts, so that a
/// comparison of two texts names the part that a difference is in.
class Lines {
 public:
  void Heading(const std::string& text) { text_ += text + '\n'; }
  void Fact(std::string_view name, const std::string& text) {
    text_ += "  ";
    text_ += name;
    text_ += ": ";
    text_ += text;
    text_ += '\n';
  }
  std::string Done() { return std::move(text_); }

 private:
  std::string text_;
};

/// Every level says these; all else only where there is something to say.
bool IsAlwaysShown(std::string_view name) {
  return name == "NameString" || name == "FileNameIndex" || name == "LevelFlags" ||
         name == "AudioTrack";
}

void ShowHead(const ScriptValue& value, Lines& lines) {
  const ScriptModel& model = value.model;
  lines.Heading("Script of " + std::string(GameName(model.ScriptKind)));
  for (const NumberField<ScriptModel>& field : FieldsOf(model)) {
    lines.Fact(field.name, FieldText(value, model, field));
  }
  for (const ExtensionField& field : ExtensionFields()) {
    lines.Fact(field.name, ExtensionText(model.*field.member));
  }
  for (int i = 0; i < model.NumFileNames; ++i) {
    lines.Fact("FileName " + std::to_string(i), EscapedEntry(model.FileNames[i]));
  }
  for (int i = 0; i < kLanguageNameCount; ++i) {
    lines.Fact("LanguageName " + std::to_string(i), EscapedEntry(model.LanguageNames[i]));
  }
}

void ShowLevel(const ScriptValue& value, int number, Lines& lines) {
  const ScriptModel& model = value.model;
  const LevelRecord& level = model.Levels[number];
  const auto name = LevelFileName(model, level.FileNameIndex);
  lines.Heading("Level " + std::to_string(number) +
                (name ? ": " + EscapedText(ShownPart(*name)) : ""));
  for (const NumberField<LevelRecord>& field : FieldsOf(level)) {
    if (!HasField(model.ScriptKind, field.games)) continue;
    if (IsBlank(level, field) && !IsAlwaysShown(field.name)) continue;
    lines.Fact(field.name, FieldText(value, level, field));
  }
  WithEachList(level, [&](const char* list, Games, const auto& count, const auto& entries) {
    for (int i = 0; i < count; ++i) {
      lines.Fact(std::string(list) + ' ' + std::to_string(i), EntryText(value, entries[i]));
    }
  });
}

void ShowLanguages(const ScriptValue& value, Lines& lines) {
  for (const Language language : LoadedLanguages(value)) {
    const LanguageSlot& slot = value.languages[static_cast<int>(language)];
    lines.Heading("Language " + std::string(LanguageName(language)));
    lines.Fact("Count1", std::to_string(slot.Count1.value()));
    lines.Fact("Count2", std::to_string(slot.Count2.value()));
    lines.Fact("Count3", std::to_string(slot.Count3.value()));
    for (int i = 0; i < slot.Total; ++i) {
      lines.Fact("String " + std::to_string(i), EscapedEntry(StringInFile(value, language, i)));
    }
  }
}

}  // namespace

std::string ScriptText(const ScriptValue& value, std::optional<int> level) {
  Lines lines;
  if (level) {
    ShowLevel(value, *level, lines);
    return lines.Done();
  }
  ShowHead(value, lines);
  for (int i = 0; i < value.model.NumLevels; ++i) ShowLevel(value, i, lines);
  ShowLanguages(value, lines);
  return lines.Done();
}

int RunShow(const Arguments& arguments) {
  ScriptSource source = OpenSource(arguments.positional.front());
  // The text of a file has to depend on that file alone: versions are compared by it.
  const Beside beside = source.isFolder ? Beside::Languages : Beside::Nothing;
  const ScriptValue value = ReadScript(std::move(source), arguments.game, beside);
  RequireLanguages(value);
  if (arguments.level && *arguments.level >= value.model.NumLevels) {
    throw Trouble(kRefused, "there is no level " + std::to_string(*arguments.level) +
                                "; the script has " +
                                std::to_string(value.model.NumLevels.value()));
  }
  std::cout << ScriptText(value, arguments.level);
  return kDone;
}

}  // namespace quillmark
