#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/script_model.h"
#include "support/script_generator.h"
#include "support/text.h"
#include "tools/adventure.h"
#include "tools/script/finding.h"

namespace quillmark {

/// What a tool has told, without its steps: how many of them it tells depends on the time.
std::string WithoutProgress(const std::string& told);

/// A fresh process: empty modules, no open file, and a temporary folder that is the program's own.
class CoreTest : public testing::Test {
 protected:
  CoreTest();
  ~CoreTest() override;

  /// The path of `name`, which may have slashes, in that folder.
  std::string Path(std::string_view name) const;
  /// Copies a sample's folder into the temporary one and gives the path of the copied script.
  std::string CopySample(const std::string& game) const;
  /// The files that a save writes where none of the languages was; none if it fails.
  std::map<std::string, std::string> Saved() const;
  /// Runs a program in a shell and gives its status; what it prints is in `Out` and `Error` then.
  int Run(const std::string& program, const std::string& arguments) const;
  std::string Out() const { return Bytes(Path("out")); }
  std::string Error() const { return WithoutProgress(Replaced(Bytes(Path("err")), "\r\n", "\n")); }
  /// Loads a script of these streams, from a file "one".
  bool LoadStreams(std::uint8_t game, const std::vector<std::string>& streams) const;

 private:
  std::string folder_;
};

std::string Repeated(std::string_view bytes, int times);
/// The names of all that stands in a folder.
std::set<std::string> FilesIn(const std::string& folder);
/// The bytes of all files in a folder and those below it, by their names.
std::map<std::string, std::string> BytesIn(const std::string& folder);
/// Whether a file of this very name is there, letter case included.
bool IsNamed(const std::string& path);

/// Behind the elements of a level: what a TR4 stream has to have, and the closing pair.
inline const std::string kCamera = "\x91" + std::string(25, '\0');
inline const std::string kClose = Hex("81 00 0000 00 00 83");

/// A script with these streams and one file name.
std::string ScriptBytes(const std::vector<std::string>& streams);

/// What a fresh record holds after its stream was parsed, and how that ended.
struct ParsedStream {
  LevelRecord level;
  LevelRawEntry opcodes;
  std::size_t position = 0;  ///< behind the last byte that was read
  std::string outcome;
};
/// Parses `stream` with the length that a script would give for it.
ParsedStream Parse(std::uint8_t game, std::string_view stream);
/// The stream of that level, which is not the title's unless told so.
std::string Build(std::uint8_t game, const LevelRecord& level, bool isTitle = false);

/// How a routine ended: "true", "false", "missing end" or the name of its fault.
std::string Outcome(const std::function<bool()>& routine);
std::string OutcomeOf(const std::function<void()>& routine);
/// A line with the identifier and the place of each.
std::string Lines(const Findings& findings);

}  // namespace quillmark
