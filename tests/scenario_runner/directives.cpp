#include "scenario_runner/directives.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>

#include "driver/driver_text.h"
#include "scenario_runner/failure.h"

namespace quillmark {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kShownBytes = 64;

std::string Hex(std::string_view bytes) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string hex;
  for (const char character : bytes.substr(0, kShownBytes)) {
    const unsigned byte = static_cast<unsigned char>(character);
    hex += {digits[byte >> 4U], digits[byte & 0xFU], ' '};
  }
  return hex;
}

/// The bytes of the hex digits that are left in the line.
std::string ReadHex(CommandLine& line) {
  std::string digits;
  while (!line.AtEnd()) digits += line.Word();
  std::string bytes;
  for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
    bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
  }
  return bytes;
}

std::size_t ReadOffset(CommandLine& line) { return std::stoul(line.Word(), nullptr, 0); }

/// Two texts of a line, which braces take in the order of the line.
struct TwoTexts {
  std::string first;
  std::string second;
};

void WriteFile(const TwoTexts& pathAndBytes) {
  const auto& [path, bytes] = pathAndBytes;
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) throw Failure("cannot write " + path);
}

void Patch(CommandLine& line) {
  const std::string path = line.Word();
  std::string bytes = FileBytes(path);
  const std::size_t offset = ReadOffset(line);
  const std::string patch = ReadHex(line);
  if (offset + patch.size() > bytes.size()) throw Failure("the patch lies behind the file's end");
  WriteFile({path, bytes.replace(offset, patch.size(), patch)});
}

void CheckBytes(CommandLine& line) {
  const std::string bytes = FileBytes(line.Word());
  const std::size_t offset = ReadOffset(line);
  const std::string wanted = ReadHex(line);
  const std::string got = bytes.substr(std::min(offset, bytes.size()), wanted.size());
  if (got != wanted) throw Failure("\n  expected: " + Hex(wanted) + "\n  got:      " + Hex(got));
}

void CheckSize(CommandLine& line) {
  const std::size_t size = FileBytes(line.Word()).size();
  if (size != ReadOffset(line)) throw Failure("the file has " + std::to_string(size) + " bytes");
}

void CheckSame(CommandLine& line, bool same) {
  const std::string one = FileBytes(line.Word());
  const std::string other = FileBytes(line.Word());
  if ((one == other) != same) throw Failure(same ? "the files differ" : "the files are the same");
}

void CheckExists(CommandLine& line, bool exists) {
  const std::string path = line.Word();
  if (fs::exists(path) != exists) throw Failure(exists ? "no " + path : path + " is there");
}

void SetWritable(CommandLine& line, bool writable) {
  constexpr auto write = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  fs::permissions(line.Word(), writable ? fs::perms::owner_write : write,
                  writable ? fs::perm_options::add : fs::perm_options::remove);
}

const std::map<std::string, std::function<void(CommandLine&)>, std::less<>> kDirectives = {
    {"write",
     [](CommandLine& line) {
       WriteFile({line.Word(), ReadHex(line)});
     }},
    {"text",
     [](CommandLine& line) {
       WriteFile({line.Word(), line.Bytes()});
     }},
    {"patch", Patch},
    {"copy",
     [](CommandLine& line) {
       const TwoTexts paths = {line.Word(), line.Word()};
       WriteFile({paths.second, FileBytes(paths.first)});
     }},
    {"rename",
     [](CommandLine& line) {
       const TwoTexts paths = {line.Word(), line.Word()};
       fs::rename(paths.first, paths.second);
     }},
    {"remove", [](CommandLine& line) { fs::remove_all(line.Word()); }},
    {"readonly", [](CommandLine& line) { SetWritable(line, false); }},
    {"writable", [](CommandLine& line) { SetWritable(line, true); }},
    {"fold", [](CommandLine& line) { fs::create_directories(line.Word()); }},
    {"bytes", CheckBytes},
    {"size", CheckSize},
    {"absent", [](CommandLine& line) { CheckExists(line, false); }},
    {"exists", [](CommandLine& line) { CheckExists(line, true); }},
    {"same", [](CommandLine& line) { CheckSame(line, true); }},
    {"differ", [](CommandLine& line) { CheckSame(line, false); }},
};

}  // namespace

std::string FileBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw Failure("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

void RunDirective(const std::string& line) {
  CommandLine words(line);
  const std::string name = words.Word();
  const auto known = kDirectives.find(name);
  if (known == kDirectives.end()) throw Failure("unknown directive: " + name);
  known->second(words);
  words.ExpectEnd();
}

}  // namespace quillmark
