// Load and save, each beside the plain work that it can't avoid: the same bytes of the same files,
// read or written with one call per file. Both are timed in turn, so that what else the machine
// does meets both. And the memory of languages, whole ones and such as are damaged in the worst
// way.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/largest_script.h"
#include "bench/plain_files.h"
#include "bench/temporary_folder.h"
#include "core/script_dat.h"
#include "core/script_model.h"
#include "frame/recovery.h"
#include "platform/file_numbers.h"
#include "platform/files.h"
#include "platform/little_endian.h"
#include "strings/language_files.h"
#include "tools/adventure.h"
#include "tools/script/check.h"
#include "tools/script/json_form.h"
#include "tools/script/save_losses.h"
#include "tools/script/script_json.h"
#include "tools/script/script_scan.h"
#include "tools/script/show.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

/// A script on disk, in a folder of its own that is also the program's.
struct Case {
  std::string name;
  std::uint8_t game;
  std::function<void(const fs::path& folder)> make;
};

void MakeSample(const fs::path& folder, const char* sample) {
  fs::copy(fs::path(QUILLMARK_SAMPLES) / sample, folder);
}

std::vector<Case> Cases() {
  std::vector<Case> cases = {
      {"sample_tr4", kTr4, [](const fs::path& folder) { MakeSample(folder, "tr4"); }},
      {"sample_tr5", kTr5, [](const fs::path& folder) { MakeSample(folder, "tr5"); }}};
  for (const int levels : {kMostLevels / 4, kMostLevels / 2, kMostLevels}) {
    for (const std::uint8_t game : {kTr4, kTr5}) {
      cases.push_back(
          {"levels_" + std::to_string(levels) + "_tr" + std::to_string(game), game,
           [=](const fs::path& folder) { WriteLargestScript(folder.string(), game, levels); }});
    }
  }
  return cases;
}

/// The folder of one benchmark.
class CaseFolder : public TemporaryFolder {
 public:
  explicit CaseFolder(const Case& made) : game_(made.game) { made.make(Path()); }

  std::string Script() const { return File("SCRIPT.DAT"); }

  void Load() const {
    if (!LoadAdventure(Script(), game_)) throw std::runtime_error("the script can't be loaded");
  }

  void Save() const {
    if (!SaveScript(Script()) || !WriteLoadedLanguages(Path().string())) {
      throw std::runtime_error("the script can't be saved");
    }
  }

  /// All files, as they stand now.
  std::vector<PlainFile> PlainFiles() const {
    std::vector<PlainFile> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(Path())) {
      const std::string name = entry.path().filename().string();
      files.push_back(TakeFile(entry.path().string(), name == "scriptdata.tmp"));
    }
    return files;
  }

 private:
  std::uint8_t game_;
};

/// A model as a start of the process finds it.
void EmptyModel() {
  TRScript = {};
  StringsMod = {};
  SizeOffsetArrays();
}

template <class Work>
double Seconds(Work work) {
  const Clock::time_point start = Clock::now();
  work();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

double Shortest(const std::vector<double>& seconds) {
  return *std::min_element(seconds.begin(), seconds.end());
}

constexpr double kMicroseconds = 1e6;
constexpr double kNanoseconds = 1e9;

/// Times `work` and `plain` in turn; the figures are of the shortest time of each.
template <class Prepare, class Work, class Plain>
void Compare(benchmark::State& state, std::size_t bytes, Prepare prepare, Work work, Plain plain) {
  std::vector<double> ofWork;
  std::vector<double> ofPlain;
  for (auto _ : state) {
    prepare();
    ofWork.push_back(Seconds(work));
    ofPlain.push_back(Seconds(plain));
    state.SetIterationTime(ofWork.back());
  }
  const double workTime = Shortest(ofWork);
  const double plainTime = Shortest(ofPlain);
  state.counters["bytes"] = static_cast<double>(bytes);
  state.counters["us"] = workTime * kMicroseconds;
  state.counters["plain_us"] = plainTime * kMicroseconds;
  state.counters["ratio"] = workTime / plainTime;
  state.counters["ns_per_byte"] = workTime * kNanoseconds / static_cast<double>(bytes);
}

void Load(benchmark::State& state, const Case& chosen) {
  const CaseFolder folder(chosen);
  fs::remove(folder.File("scriptdata.tmp"));  // no load reads it
  std::vector<PlainFile> files = folder.PlainFiles();
  Compare(
      state, BytesOf(files), EmptyModel, [&] { folder.Load(); },
      [&] { std::for_each(files.begin(), files.end(), ReadPlainly); });
}

void Save(benchmark::State& state, const Case& chosen) {
  const CaseFolder folder(chosen);
  EmptyModel();
  folder.Load();
  folder.Save();
  const std::vector<PlainFile> files = folder.PlainFiles();
  Compare(
      state, BytesOf(files), [] {}, [&] { folder.Save(); },
      [&] { std::for_each(files.begin(), files.end(), WritePlainly); });
}

/// One look at a script that has changed since the last one, and the copy that follows from it; and
/// one at a script that has not.
void LookForUnsaved(benchmark::State& state, bool changed) {
  const TemporaryFolder folder;
  FillLargestScript(kTr4, kMostLevels);
  Recovery recovery;
  std::vector<double> looks;
  for (auto _ : state) {
    fs::remove_all(folder.File("recovered"));  // which takes few copies in one second
    if (changed) TRScript.ScriptFrameRate = TRScript.ScriptFrameRate == 30 ? 25 : 30;
    looks.push_back(Seconds([&] { recovery.Look(); }));
    state.SetIterationTime(looks.back());
  }
  state.counters["us"] = Shortest(looks) * kMicroseconds;
  state.counters["longest_us"] = *std::max_element(looks.begin(), looks.end()) * kMicroseconds;
}

std::string UsualLanguage() {
  std::ifstream file(QUILLMARK_SAMPLES "/tr4/ENGLISH.DAT", std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Offsets that go up and down: every other string reaches as far behind the end as one can.
std::string DamagedLanguage() {
  std::string bytes;
  for (const int number : {kOffsetPlaces, 0, 0, 0, 0, 0}) AppendNumber(bytes, Int16(number));
  for (int i = 0; i < kOffsetPlaces; ++i) AppendNumber(bytes, Int16(i % 2 == 0 ? 0 : 32767));
  return bytes;
}

std::size_t BytesOnHeap() {
  const struct mallinfo2 all = mallinfo2();
  return all.uordblks + all.hblkhd;
}

/// Seven languages of the same bytes, the last of them the primary one.
void LoadLanguages(benchmark::State& state, const std::string& bytes) {
  const TemporaryFolder folder;
  for (int i = 0; i < kLanguageCount; ++i) {
    const std::string name(LanguageFileName(static_cast<Language>(i)));
    std::ofstream(folder.File(name.c_str()), std::ios::binary) << bytes;
  }
  std::size_t used = 0;
  for (auto _ : state) {
    EmptyModel();
    const std::size_t before = BytesOnHeap();
    Slot(Language::JAPAN).Primary = kOn;
    for (int i = 0; i < kLanguageCount; ++i) {
      const std::string_view name = LanguageFileName(static_cast<Language>(i));
      ReadFoundLanguage(name, JoinPath(folder.Path().string(), name));
      Files.CloseFiles();
    }
    SetPrimaryLanguage(Language::JAPAN);
    used = BytesOnHeap() - before;
  }
  state.counters["MiB"] = static_cast<double>(used) / (1U << 20U);
}

// What the tool does between the start of its process and its output.

void ShowText(const std::string& folder) {
  benchmark::DoNotOptimize(
      ScriptText(ReadScript(OpenSource(folder), {}, Beside::Languages), std::nullopt));
}

void CheckFile(const std::string& folder) {
  const ScriptSource source = OpenSource(folder);
  benchmark::DoNotOptimize(CheckScript(source, ChooseGame(source)));
}

void ExportJson(const std::string& folder) {
  const ScriptValue value = ReadScript(OpenSource(folder), {}, Beside::Languages);
  const ScriptScan scan = ScanScript(value.source.bytes, FormatOf(value.model.ScriptKind));
  benchmark::DoNotOptimize(JsonDocument(ScriptToJson(value, SaveLosses(value, scan))));
}

void RunTool(benchmark::State& state, const Case& chosen, void (*work)(const std::string& folder)) {
  const CaseFolder folder(chosen);
  for (auto _ : state) work(folder.Path().string());
}

}  // namespace
}  // namespace quillmark

int main(int argc, char** argv) {
  using namespace quillmark;
  benchmark::Initialize(&argc, argv);
  for (const Case& chosen : Cases()) {
    benchmark::RegisterBenchmark(("load/" + chosen.name).c_str(), Load, chosen)->UseManualTime();
    benchmark::RegisterBenchmark(("save/" + chosen.name).c_str(), Save, chosen)->UseManualTime();
    benchmark::RegisterBenchmark(("show/" + chosen.name).c_str(), RunTool, chosen, ShowText);
    benchmark::RegisterBenchmark(("check/" + chosen.name).c_str(), RunTool, chosen, CheckFile);
    benchmark::RegisterBenchmark(("export/" + chosen.name).c_str(), RunTool, chosen, ExportJson);
  }
  benchmark::RegisterBenchmark("look/unchanged", LookForUnsaved, false)->UseManualTime();
  benchmark::RegisterBenchmark("look/changed", LookForUnsaved, true)->UseManualTime();
  benchmark::RegisterBenchmark("languages/usual", LoadLanguages, UsualLanguage());
  benchmark::RegisterBenchmark("languages/damaged", LoadLanguages, DamagedLanguage());
  benchmark::RunSpecifiedBenchmarks();
}
