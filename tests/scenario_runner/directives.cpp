#include "scenario_runner/directives.h"

#include <filesystem>
#include <functional>
#include <map>

#include "driver/driver_text.h"
#include "scenario_runner/expectation.h"
#include "support/bytes.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

/// The bytes of the hex digits that are left in the line.
std::string ReadHex(CommandLine& line) {
  std::string digits;
  while (!line.AtEnd()) digits += line.Word();
  return Hex(digits);
}

std::size_t ReadOffset(CommandLine& line) { return std::stoul(line.Word(), nullptr, 0); }

void Patch(const std::string& path, CommandLine& line) {
  std::string bytes = Bytes(path);
  const std::size_t offset = ReadOffset(line);
  const std::string patch = ReadHex(line);
  if (offset + patch.size() > bytes.size()) throw Failure("the patch lies behind the file's end");
  MakeFile(path, bytes.replace(offset, patch.size(), patch));
}

void CheckBytes(const std::string& path, CommandLine& line) {
  const std::string bytes = Bytes(path);
  const std::size_t offset = ReadOffset(line);
  const std::string wanted = ReadHex(line);
  if (bytes.compare(std::min(offset, bytes.size()), wanted.size(), wanted) == 0) return;
  std::string got = "the file has ";
  for (const char byte : bytes.substr(std::min(offset, bytes.size()), wanted.size())) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    got += {digits[static_cast<unsigned char>(byte) / 16],
            digits[static_cast<unsigned char>(byte) % 16], ' '};
  }
  throw Failure(got);
}

void CheckSize(const std::string& path, CommandLine& line) {
  const std::size_t size = Bytes(path).size();
  if (size != ReadOffset(line)) throw Failure("the file has " + std::to_string(size) + " bytes");
}

void CheckSame(const std::string& one, const std::string& other, bool same) {
  if ((Bytes(one) == Bytes(other)) != same) {
    throw Failure(same ? "the files differ" : "the files are the same");
  }
}

void CheckExists(const std::string& path, bool exists) {
  if (fs::exists(path) != exists) throw Failure(exists ? "no " + path : path + " is there");
}

void SetWritable(const std::string& path, bool writable) {
  constexpr auto write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  fs::permissions(path, write, writable ? fs::perm_options::add : fs::perm_options::remove);
}

using Path = const std::string&;

/// Each takes the path behind its name, and reads the rest of the line.
const std::map<std::string, void (*)(Path, CommandLine&), std::less<>> kDirectives = {
    {"write", [](Path path, CommandLine& line) { MakeFile(path, ReadHex(line)); }},
    {"text", [](Path path, CommandLine& line) { MakeFile(path, line.Bytes()); }},
    {"patch", Patch},
    {"copy", [](Path path, CommandLine& line) { MakeFile(line.Word(), Bytes(path)); }},
    {"rename", [](Path path, CommandLine& line) { fs::rename(path, line.Word()); }},
    {"remove", [](Path path, CommandLine&) { fs::remove_all(path); }},
    {"readonly", [](Path path, CommandLine&) { SetWritable(path, false); }},
    {"writable", [](Path path, CommandLine&) { SetWritable(path, true); }},
    {"fold", [](Path path, CommandLine&) { fs::create_directories(path); }},
    {"bytes", CheckBytes},
    {"size", CheckSize},
    {"absent", [](Path path, CommandLine&) { CheckExists(path, false); }},
    {"exists", [](Path path, CommandLine&) { CheckExists(path, true); }},
    {"same", [](Path path, CommandLine& line) { CheckSame(path, line.Word(), true); }},
    {"differ", [](Path path, CommandLine& line) { CheckSame(path, line.Word(), false); }},
};

}  // namespace

void RunDirective(const std::string& line) {
  CommandLine words(line);
  const std::string name = words.Word();
  const auto known = kDirectives.find(name);
  if (known == kDirectives.end()) throw Failure("unknown directive: " + name);
  known->second(words.Word(), words);
  words.ExpectEnd();
}

}  // namespace quillmark
