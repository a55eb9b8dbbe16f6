#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/opcode_table.h"
#include "platform/byte_reader.h"

namespace quillmark {

/// A walk over the bytes of a script in the loader's steps, which keeps where everything stands and
/// stops at nothing. It tells what the model does not hold, and what a load stumbles over.

/// One element of a level's stream, or a byte that is none.
struct ScannedElement {
  std::size_t at;          ///< position of the opcode
  std::size_t length;      ///< with the operands, also those that would stand behind the end
  const Element* element;  ///< null for a byte that is no opcode of the game
};

struct ScannedStream {
  std::size_t begin = 0;
  std::size_t end = 0;  ///< where the parser stops
  std::vector<ScannedElement> elements;
  bool closed = false;      ///< the closing element was met
  bool endMissing = false;  ///< and no end of data behind it
};

/// Walks over at most `most` elements from where `bytes` stands, up to the end of the bytes.
ScannedStream ScanStream(ByteReader& bytes, std::int64_t most, const StreamFormat& format);

/// A part of the file.
struct Stretch {
  std::size_t at = 0;
  std::size_t length = 0;
};

struct ScriptScan {
  std::size_t headLength = 0;
  std::vector<Stretch> reserved;  ///< what the head holds and no save writes
  std::vector<std::int64_t> fileNameOffsets;
  std::vector<std::int64_t> levelOffsets;
  std::int64_t fileNamesSize = 0;
  std::int64_t scriptDataSize = 0;
  std::size_t levelBlock = 0;  ///< where the levels begin for the loader
  std::vector<ScannedStream> levels;
  std::vector<Stretch> languageNames;  ///< without their zeros
  std::size_t tail = 0;                ///< what stands behind the eighth name
  bool endsEarly = false;              ///< the file ends in front of its language names
};

ScriptScan ScanScript(std::string_view bytes, const StreamFormat& format);

}  // namespace quillmark
