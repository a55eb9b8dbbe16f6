#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "core/script_model.h"

namespace quillmark {

/// A fresh process: empty modules, no open file, and a temporary folder that is the program's own.
class CoreTest : public testing::Test {
 protected:
  CoreTest();
  ~CoreTest() override;

  /// The path of `name`, which may have slashes, in that folder.
  std::string Path(std::string_view name) const;
  /// Copies a sample's folder into the temporary one and gives the path of the copied script.
  std::string CopySample(const std::string& game) const;
  /// Makes a file, opens it under number 1 and parses it as level 1 of a fresh model.
  LevelRecord& Parse(std::uint8_t game, const std::string& stream);
  /// Builds that level and gives what `LevelRaw` holds of it.
  static std::string Build(std::uint8_t game, int level);

 private:
  std::string folder_;
};

/// The bytes that hexadecimal digits stand for; blanks are passed over.
std::string Hex(std::string_view digits);
std::string Zeros(std::size_t count);
std::string Word(int value);
std::string Repeated(std::string_view bytes, int times);

std::string Bytes(const std::string& path);
/// Whether a file of this very name is there, letter case included.
bool IsNamed(const std::string& path);
void MakeFile(const std::string& path, const std::string& bytes);

/// Behind the elements of a level: what a TR4 stream has to have, and the closing pair.
inline const std::string kCamera = "\x91" + std::string(25, '\0');
inline const std::string kClose = Hex("81 00 0000 00 00 83");

/// A script with these streams and one file name.
std::string ScriptBytes(const std::vector<std::string>& streams);

/// How a routine ended: "true", "false", "missing end" or the name of its fault.
std::string Outcome(const std::function<bool()>& routine);
std::string OutcomeOf(const std::function<void()>& routine);
bool Load(const std::string& path, std::uint8_t game);

/// The entries of a bounded array as plain numbers.
template <class Array>
std::vector<int> Numbers(const Array& array) {
  return std::vector<int>(array.begin(), array.end());
}

}  // namespace quillmark
