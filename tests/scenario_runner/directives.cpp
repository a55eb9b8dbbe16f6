#include "scenario_runner/directives.h"

#include <filesystem>
#include <map>
#include <sstream>

#include "scenario_runner/expectation.h"
#include "support/text.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

/// The bytes of the hex digits that are left in the line.
std::string ReadHex(std::istream& line) { return Hex({std::istreambuf_iterator<char>(line), {}}); }

std::size_t ReadOffset(std::istream& line) { return std::stoul(ReadWord(line), nullptr, 0); }

void Patch(const std::string& path, std::istream& line) {
  std::string bytes = Bytes(path);
  const std::size_t offset = ReadOffset(line);
  const std::string patch = ReadHex(line);
  if (offset + patch.size() > bytes.size()) throw Failure("the patch lies behind the file's end");
  MakeFile(path, bytes.replace(offset, patch.size(), patch));
}

void CheckBytes(const std::string& path, std::istream& line) {
  const std::string bytes = Bytes(path);
  const std::size_t offset = ReadOffset(line);
  const std::string wanted = ReadHex(line);
  if (bytes.compare(std::min(offset, bytes.size()), wanted.size(), wanted) == 0) return;
  throw Failure("the file has " +
                HexOf(bytes.substr(std::min(offset, bytes.size()), wanted.size())));
}

void CheckSize(const std::string& path, std::istream& line) {
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
const std::map<std::string, void (*)(Path, std::istream&), std::less<>> kDirectives = {
    {"write", [](Path path, std::istream& line) { MakeFile(path, ReadHex(line)); }},
    {"text", [](Path path, std::istream& line) { MakeFile(path, ReadBytes(line)); }},
    {"patch", Patch},
    {"copy", [](Path path, std::istream& line) { MakeFile(ReadWord(line), Bytes(path)); }},
    {"rename", [](Path path, std::istream& line) { fs::rename(path, ReadWord(line)); }},
    {"remove", [](Path path, std::istream&) { fs::remove_all(path); }},
    {"readonly", [](Path path, std::istream&) { SetWritable(path, false); }},
    {"writable", [](Path path, std::istream&) { SetWritable(path, true); }},
    {"fold", [](Path path, std::istream&) { fs::create_directories(path); }},
    {"bytes", CheckBytes},
    {"size", CheckSize},
    {"absent", [](Path path, std::istream&) { CheckExists(path, false); }},
    {"exists", [](Path path, std::istream&) { CheckExists(path, true); }},
    {"same", [](Path path, std::istream& line) { CheckSame(path, ReadWord(line), true); }},
    {"differ", [](Path path, std::istream& line) { CheckSame(path, ReadWord(line), false); }},
};

}  // namespace

void RunDirective(const std::string& line) {
  std::istringstream words(line);
  const std::string name = ReadWord(words);
  const auto known = kDirectives.find(name);
  if (known == kDirectives.end()) throw Failure("unknown directive: " + name);
  known->second(ReadWord(words), words);
  ExpectEnd(words);
}

}  // namespace quillmark
