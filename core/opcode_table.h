#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <variant>
#include <vector>

#include "core/script_model.h"

namespace quillmark {

/// What the level streams of the two games are made of. A stream is a run of elements, each an
/// opcode byte and the operands that belong to it; a closing element and `kEndOfData` end it. There
/// is one table per game: the parser looks elements up in it by opcode, and the builder walks it
/// from top to bottom, so that its order is the order of the elements in a stream that is written.

/// The byte behind the closing element.
inline constexpr std::uint8_t kEndOfData = 0x83;

/// A field of the record that an operand feeds. Its type tells the width: a `Byte` takes one byte,
/// an `Int16` two, an `Int32` four, and an array its entries one after the other.
using Field =
    std::variant<Byte LevelRecord::*, Int16 LevelRecord::*, Int32 LevelRecord::*,
                 FixedArray<Byte, 3> LevelRecord::*, FixedArray<Byte, 4> LevelRecord::*,
                 FixedArray<Int16, 3> LevelRecord::*, FixedArray<Int32, 6> LevelRecord::*>;

enum class Kept { Yes, AsZero };

struct Operand {
  template <class Type>
  Operand(Type LevelRecord::*member, Kept whenWritten = Kept::Yes)
      : field(member), kept(whenWritten) {}

  Field field;
  Kept kept;  ///< `AsZero`: read into the field, written as zeros whatever the field holds
};

enum class Written { Always, IfNotZero, IfOn };

/// One value or one set of values; a later element replaces an earlier one.
struct Values {
  std::vector<Operand> operands;
  Written when;                          ///< `IfNotZero` looks at the first operand, a byte
  Int16 LevelRecord::*onWord = nullptr;  ///< what reading turns on, if any
};

/// Objects of one kind. The opcode tells `Id`, and for combinations `Combo` in turn.
struct Objects {
  ObjectKind kind;
  std::uint8_t lastWritten = 0xFF;  ///< the highest opcode that the builder knows, if lower
};

/// Entries of `Cuts`. The opcode tells `Type`.
struct CutList {};

/// Words that are only carried from load to save.
struct WordList {
  Byte LevelRecord::*count;
  FixedArray<Int16, kTr5ListPlaces> LevelRecord::*words;
};

/// Entries of `Mips`, which no builder writes.
struct MipList {};

/// The element in front of `kEndOfData`; the title's in level 0, the other one in all others.
struct Closing {
  bool title;
  std::vector<Operand> operands;
};

struct Element {
  std::string_view name;
  std::uint8_t first;  ///< range of its opcodes
  std::uint8_t last;
  std::variant<Values, Objects, CutList, WordList, MipList, Closing> content;
};

/// The format of one game's streams.
class StreamFormat {
 public:
  StreamFormat(std::string_view game, std::vector<Element> elements);
  StreamFormat(const StreamFormat&) = delete;
  StreamFormat& operator=(const StreamFormat&) = delete;

  std::string_view Game() const { return game_; }
  const std::vector<Element>& Elements() const { return elements_; }
  /// The element that has this opcode; null if it is none of the game's.
  const Element* Find(Byte opcode) const { return byOpcode_[opcode.value()]; }

 private:
  std::string_view game_;
  std::vector<Element> elements_;
  std::array<const Element*, 256> byOpcode_{};
};

/// The format of the game that `kind`, a `ScriptKind`, stands for. Made at the first call.
const StreamFormat& FormatOf(const Byte& kind);

}  // namespace quillmark
