#pragma once

#include <string>

#include "platform/ansi.h"
#include "tools/script/script_fields.h"
#include "tools/script/script_value.h"
#include "tools/script/text_form.h"

namespace quillmark {

/// The words of `show` and `diff` for a field that is one number.
std::string NumberText(const ScriptValue& value, Meaning meaning, std::int64_t number);

/// Whether all numbers of the field are zero.
template <class Record>
bool IsBlank(const Record& record, const NumberField<Record>& field) {
  for (std::size_t i = 0; i < field.count; ++i) {
    if (field.get(record, i) != 0) return false;
  }
  return true;
}

template <class Record>
std::string FieldText(const ScriptValue& value, const Record& record,
                      const NumberField<Record>& field) {
  std::string text;
  for (std::size_t i = 0; i < field.count; ++i) {
    if (i > 0) text += ' ';
    text += NumberText(value, field.meaning, field.get(record, i));
  }
  return text;
}

/// An entry of a list on one line.
template <class Record>
std::string EntryText(const ScriptValue& value, const Record& record) {
  std::string text;
  for (const NumberField<Record>& field : FieldsOf(record)) {
    if (field.meaning == Meaning::Combo && IsBlank(record, field)) continue;
    if (!text.empty()) text += ", ";
    if (!field.name.empty()) text += std::string(field.name) + ' ';
    text += FieldText(value, record, field);
  }
  return text;
}

/// The extension without its filling.
std::string ExtensionText(std::string_view extension);

}  // namespace quillmark
