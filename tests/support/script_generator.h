#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace quillmark {

/// Offsets of the entries, and the entries behind them.
struct OffsetTable {
  std::string offsets;
  std::string entries;
};

OffsetTable Joined(const std::vector<std::string>& entries);

/// The bytes of the whole element that begins with `opcode`; 1 for what is no opcode of the game,
/// and for those that close a level.
int ElementLength(std::uint8_t game, int opcode);

/// Scripts as they could lie on a disk, made by chance but the same in every run: elements in any
/// order, doubled, of no value, bytes that are no opcodes, references to nothing, reserved bytes
/// that are used, tails. Those for the editor mostly refer to what is there, so that it shows them.
class ScriptGenerator {
 public:
  explicit ScriptGenerator(unsigned seed, bool forEditor = false)
      : engine_(seed), forEditor_(forEditor) {}

  std::string Script(std::uint8_t game);
  std::string LanguageFile();
  int Below(int bound) { return static_cast<int>(engine_() % static_cast<unsigned>(bound)); }

 private:
  bool Rarely() { return Below(8) == 0; }
  std::string RandomBytes(int count, int lowest = 0);
  std::string Stream(std::uint8_t game, int objects, bool title);

  std::mt19937 engine_;
  bool forEditor_;
};

}  // namespace quillmark
