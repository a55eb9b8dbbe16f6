#include <algorithm>
#include <string>

#include "core/level_stream.h"
#include "core/object_groups.h"
#include "core/opcode_table.h"
#include "platform/little_endian.h"

namespace quillmark {
namespace {

template <class Type, std::size_t Count>
void AppendNumber(std::string& stream, const FixedArray<Type, Count>& values) {
  AppendNumbers(stream, values.First(Count));
}

template <class Type>
void AppendOperand(std::string& stream, const Type& value, Kept kept) {
  AppendNumber(stream, kept == Kept::Yes ? value : Type{});
}

void AppendOpcode(std::string& stream, int opcode) {
  quillmark::AppendNumber(stream, Byte(opcode));
}

/// Writes one game's elements of one level.
class ElementWriter {
 public:
  ElementWriter(const LevelRecord& level, bool isTitle, std::string& stream)
      : level_(level), isTitle_(isTitle), stream_(stream) {}

  void Write(const Element& element) {
    std::visit([&](const auto& content) { WriteContent(element, content); }, element.content);
  }

 private:
  void WriteContent(const Element& element, const Values& values) {
    if (IsWritten(values)) WriteWhole(element, values.operands);
  }

  void WriteContent(const Element& element, const Closing& closing) {
    if (closing.title == isTitle_) WriteWhole(element, closing.operands);
  }

  void WriteContent(const Element& element, const Objects& objects) {
    WithGroup(level_, objects.kind, [&](const Byte& count, const auto& entries) {
      for (int i = 0; i < count; ++i) {
        const auto& entry = entries[i];
        int place = entry.Id - 1;
        if constexpr (kHasCombo<decltype(entry)>) {
          place = entry.Combo == 1 || entry.Combo == 2 ? 2 * place + entry.Combo - 1 : -1;
        }
        WriteOpcodeOf(element, place, objects.lastWritten);
        AppendNumber(stream_, entry.StringId);
        AppendNumber(stream_, entry.Params);
      }
    });
  }

  void WriteContent(const Element& element, const CutList&) {
    for (int i = 0; i < level_.CutCount; ++i) {
      const CutEntry& entry = level_.Cuts[i];
      WriteOpcodeOf(element, entry.Type - 1, element.last);
      AppendNumber(stream_, entry.Value);
    }
  }

  void WriteContent(const Element& element, const WordList& list) {
    for (int i = 0; i < level_.*list.count; ++i) {
      AppendOpcode(stream_, element.first);
      AppendNumber(stream_, (level_.*list.words)[i]);
    }
  }

  void WriteContent(const Element&, const MipList&) {}

  /// Kept as it is: an entry whose number has no opcode is written without one, which makes a
  /// reader take its operands for opcodes.
  void WriteOpcodeOf(const Element& element, int place, std::uint8_t lastWritten) {
    const int opcode = element.first + place;
    if (place >= 0 && opcode <= std::min(element.last, lastWritten)) AppendOpcode(stream_, opcode);
  }

  void WriteWhole(const Element& element, const std::vector<Operand>& operands) {
    AppendOpcode(stream_, element.first);
    for (const Operand& operand : operands) {
      std::visit([&](auto member) { AppendOperand(stream_, level_.*member, operand.kept); },
                 operand.field);
    }
  }

  bool IsWritten(const Values& values) const {
    switch (values.when) {
      case Written::Always:
        return true;
      case Written::IfNotZero:
        return level_.*std::get<Byte LevelRecord::*>(values.operands.front().field) != 0;
      case Written::IfOn:
        return IsOn(level_.*values.onWord);
    }
    return false;
  }

  const LevelRecord& level_;
  bool isTitle_;
  std::string& stream_;
};

}  // namespace

void AppendStream(const LevelRecord& level, bool isTitle, const StreamFormat& format,
                  std::string& stream) {
  ElementWriter writer(level, isTitle, stream);
  for (const Element& element : format.Elements()) writer.Write(element);
  AppendOpcode(stream, kEndOfData);
}

}  // namespace quillmark
