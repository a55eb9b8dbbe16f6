#include "unit/core_fixture.h"

#include <cstdlib>
#include <filesystem>
#include <random>
#include <regex>

#include "core/level_stream.h"
#include "core/opcode_table.h"
#include "core/script_dat.h"
#include "platform/byte_reader.h"
#include "platform/fault.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "strings/language_files.h"

namespace quillmark {

namespace fs = std::filesystem;

std::string WithoutProgress(const std::string& told) {
  return std::regex_replace(told, std::regex("[^\n]* \\.\\.\\.\n"), "");
}

CoreTest::CoreTest() {
  std::random_device number;
  folder_ = (fs::temp_directory_path() / ("core_test_" + std::to_string(number()))).string();
  fs::create_directories(folder_);
  SetProgramFolder(folder_);
  TRScript = {};
  StringsMod = {};
  SizeOffsetArrays();
}

CoreTest::~CoreTest() {
  Files.CloseAll();
  SetStringListeners({});
  fs::remove_all(folder_);
}

std::string CoreTest::Path(std::string_view name) const {
  return (fs::path(folder_) / name).make_preferred().string();
}

std::string CoreTest::CopySample(const std::string& game) const {
  fs::copy(fs::path(QUILLMARK_SAMPLES) / game, Path(game));
  return Path(game + "/SCRIPT.DAT");
}

std::map<std::string, std::string> CoreTest::Saved() const {
  const std::string folder = Path("saved");
  fs::remove_all(folder);
  fs::create_directory(folder);
  MakeFile(Path("saved/SCRIPT.DAT"), "");
  const bool saved = SaveScript(Path("saved/SCRIPT.DAT")) && WriteLoadedLanguages(folder);
  return saved ? BytesIn(folder) : std::map<std::string, std::string>();
}

int CoreTest::Run(const std::string& program, const std::string& arguments) const {
  const std::string command = program + " " + arguments + " >" + Path("out") + " 2>" + Path("err");
  const int status = std::system(command.c_str());
  return status < 256 ? status : status / 256;
}

bool CoreTest::LoadStreams(std::uint8_t game, const std::vector<std::string>& streams) const {
  MakeFile(Path("one"), ScriptBytes(streams));
  return LoadAdventure(Path("one"), game);
}

std::string Repeated(std::string_view bytes, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += bytes;
  return all;
}

std::set<std::string> FilesIn(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.insert(entry.path().filename().string());
  }
  return names;
}

std::map<std::string, std::string> BytesIn(const std::string& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().lexically_relative(folder).string();
    if (entry.is_regular_file()) files[name] = Bytes(entry.path().string());
  }
  return files;
}

bool IsNamed(const std::string& path) {
  const fs::path whole(path);
  return FilesIn(whole.parent_path().string()).contains(whole.filename().string());
}

std::string ScriptBytes(const std::vector<std::string>& streams) {
  const OffsetTable table = Joined(streams);
  return Hex("0100 0000 00000000 07") + static_cast<char>(streams.size()) + Hex("01 00 0300") +
         Word(static_cast<int>(table.entries.size())) + Zeros(40) + Word(0) + "AB" + Zeros(1) +
         table.offsets + table.entries + Repeated(std::string("X\0", 2), 8);
}

std::string Outcome(const std::function<bool()>& routine) {
  try {
    return routine() ? "true" : "false";
  } catch (const Fault& fault) {
    return std::string(FaultName(fault.kind()));
  } catch (const MissingEndOfData&) {
    return "missing end";
  }
}

std::string OutcomeOf(const std::function<void()>& routine) {
  return Outcome([&] {
    routine();
    return true;
  });
}

ParsedStream Parse(std::uint8_t game, std::string_view stream) {
  ParsedStream parsed;
  ByteReader bytes(stream);
  const Int16 length = static_cast<std::int64_t>(stream.size()) - 1;
  parsed.outcome =
      OutcomeOf([&] { ParseStream(bytes, length, FormatOf(game), parsed.level, parsed.opcodes); });
  parsed.position = bytes.Position();
  return parsed;
}

std::string Build(std::uint8_t game, const LevelRecord& level, bool isTitle) {
  std::string stream;
  AppendStream(level, isTitle, FormatOf(game), stream);
  return stream;
}

std::string Lines(const Findings& findings) {
  static const std::string known = '\n' + Bytes(QUILLMARK_FINDINGS);
  std::string lines;
  for (const Finding& finding : findings) {
    const std::string line = FindingLine(finding) + '\n';
    EXPECT_NE(known.find('\n' + line), std::string::npos) << line;
    lines += std::string(finding.id) + ' ' + finding.place + '\n';
  }
  return lines;
}

}  // namespace quillmark
