#pragma once

#include <cstdint>
#include <map>
#include <random>
#include <string>

namespace quillmark {

/// Scripts as they could lie on a disk, made by chance but the same in every run: elements in any
/// order, doubled, of no value, bytes that are no opcodes, references to nothing, reserved bytes
/// that are used, tails.
class ScriptGenerator {
 public:
  explicit ScriptGenerator(unsigned seed) : engine_(seed) {}

  std::string Script(std::uint8_t game);
  std::string LanguageFile();
  int Below(int bound) { return static_cast<int>(engine_() % static_cast<unsigned>(bound)); }

 private:
  bool Rarely() { return Below(8) == 0; }
  std::string RandomBytes(int count, int lowest = 0);
  std::string Stream(const std::map<int, int>& widths, int objects, bool title);

  std::mt19937 engine_;
};

}  // namespace quillmark
