#include <filesystem>
#include <iostream>
#include <system_error>

#include "platform/fault.h"
#include "platform/files.h"
#include "platform/system_path.h"
#include "tools/script/commands.h"
#include "tools/script/field_text.h"
#include "tools/script/output.h"
#include "tools/script/script_files.h"
#include "tools/script/script_json.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

std::string ReadJsonFile(const std::string& path) try {
  return ReadWholeFile(path, kMostJsonBytes);
} catch (const Fault& fault) {
  throw Trouble(kUnreadable, fault.what());
}

void Print(const Findings& findings) {
  for (const Finding& finding : findings) std::cerr << FindingLine(finding) << '\n';
}

template <class Record>
void CompareFields(const ScriptValue& wanted, const Record& before, const Record& after,
                   const std::string& place, Findings& findings) {
  for (const NumberField<Record>& field : FieldsOf(before)) {
    if (!HasField(wanted.model.ScriptKind, field.games)) continue;
    const std::string said = FieldText(wanted, before, field);
    const std::string written = FieldText(wanted, after, field);
    if (said == written) continue;
    std::string sentence = "the script has no place for ";
    sentence.append(said).append(" here; it reads as ").append(written);
    findings.push_back(
        {"not-written", Severity::Warning, place + '/' + std::string(field.name), sentence});
  }
}

/// Reads the built script again and tells which values it had no place for.
Findings Unwritten(const ScriptValue& value, const std::string& script) {
  Findings findings;
  ScriptSource source;
  source.bytes = script;
  ScriptModel read;
  if (!LoadAs(source, value.model.ScriptKind, read).empty()) return findings;
  if (read.NumLevels != value.model.NumLevels) return findings;
  for (int i = 0; i < read.NumLevels; ++i) {
    CompareFields(value, value.model.Levels[i], read.Levels[i], LevelPlace(i), findings);
  }
  return findings;
}

std::string PlaceIn(const std::string& folder, const std::string& name) {
  return PathText(SystemPath(JoinPath(folder, name)));
}

/// A folder that is made here goes again if nothing gets into it.
class TargetFolder {
 public:
  explicit TargetFolder(const std::string& folder) : path_(FormOfSystem(folder)) {
    std::error_code error;
    made_ = fs::create_directories(path_, error);
    if (!fs::is_directory(path_, error)) {
      throw Trouble(kRefused, "the folder '" + folder + "' can't be made");
    }
  }
  ~TargetFolder() {
    std::error_code ignored;
    if (made_) fs::remove(path_, ignored);
  }
  TargetFolder(const TargetFolder&) = delete;
  TargetFolder& operator=(const TargetFolder&) = delete;

 private:
  fs::path path_;
  bool made_ = false;
};

void RefuseToReplace(const std::string& folder, const std::vector<NewFile>& files) {
  for (const NewFile& file : files) {
    const std::string path = JoinPath(folder, file.path);
    if (FindFile(path).empty()) continue;
    throw Trouble(kRefused, "'" + path + "' is there already; --force replaces it");
  }
}

void WarnOfOthers(const std::string& folder, const ScriptValue& value) {
  for (int i = 0; i < kLanguageCount; ++i) {
    if (IsOn(value.languages[i].Loaded)) continue;
    const std::string path = JoinPath(folder, LanguageFileName(static_cast<Language>(i)));
    if (FindFile(path).empty()) continue;
    std::cerr << "warning: '" << path << "' stays, though the script has no such language\n";
  }
}

}  // namespace

int RunBuild(const Arguments& arguments) {
  const std::string& folder = arguments.positional[1];
  Findings findings;
  const ScriptValue value = ScriptFromText(ReadJsonFile(arguments.positional[0]), findings);
  if (HasSeverity(findings, Severity::Error)) {
    Print(findings);
    return kRefused;
  }
  std::vector<NewFile> files = ScriptFiles(value);
  const Findings unwritten = Unwritten(value, files.front().bytes);
  findings.insert(findings.end(), unwritten.begin(), unwritten.end());
  Print(findings);

  const TargetFolder target(folder);
  if (!arguments.force) RefuseToReplace(folder, files);
  for (NewFile& file : files) {
    file.path = PlaceIn(folder, file.path);
    RefuseToReplaceInput(file.path, arguments.positional[0]);
  }
  WriteWholeFiles(files);
  WarnOfOthers(folder, value);
  return kDone;
}

}  // namespace quillmark
