// The script as text: what becomes of it on the way there and back, and what is refused.

#include <cstdlib>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>

#include "core/level_stream.h"
#include "core/opcode_table.h"
#include "strings/language_files.h"
#include "support/script_generator.h"
#include "tools/script/diff.h"
#include "tools/script/json_form.h"
#include "tools/script/save_losses.h"
#include "tools/script/script_files.h"
#include "tools/script/script_json.h"
#include "tools/script/script_scan.h"
#include "tools/script/show.h"
#include "tools/script/text_form.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

/// Scripts for each game; another number may be asked for by hand.
int GeneratedScripts() {
  const char* wanted = std::getenv("QUILLMARK_GENERATED_SCRIPTS");
  return wanted == nullptr ? 60 : std::atoi(wanted);
}

class ScriptToolTest : public CoreTest {
 protected:
  ScriptValue Read(const std::string& path, std::uint8_t game) const {
    return ReadScript(OpenSource(path), game, Beside::Languages);
  }

  /// The script as it reads once it was saved in a folder of that name.
  ScriptValue Rewritten(const ScriptValue& value, const std::string& folder) const {
    fs::create_directories(Path(folder));
    for (const NewFile& file : ScriptFiles(value)) {
      MakeFile(Path(folder + "/" + file.path), file.bytes);
    }
    return Read(Path(folder), value.model.ScriptKind);
  }

  /// The files that a load and two saves in the editor make of a script; none if one fails.
  std::map<std::string, std::string> SavedInEditor(const std::string& path,
                                                   std::uint8_t game) const {
    TRScript = {};
    StringsMod = {};
    SizeOffsetArrays();
    if (Outcome([&] { return LoadAdventure(path, game) && !Saved().empty(); }) != "true") return {};
    return Saved();
  }

  static ScriptValue ThroughText(const ScriptValue& value, Findings& findings) {
    const Json json = ParseJson(JsonDocument(ScriptToJson(value, {})), findings);
    return ScriptFromJson(json, findings);
  }

  static Findings ErrorsOf(const std::string& json) {
    Findings findings;
    ScriptFromText(json, findings);
    return findings;
  }
};

/// The bytes of the files by their names.
std::map<std::string, std::string> ByName(const std::vector<NewFile>& files) {
  std::map<std::string, std::string> byName;
  for (const NewFile& file : files) byName[file.path] = file.bytes;
  return byName;
}

TEST_F(ScriptToolTest, BuildsOfTheExportedSamplesWhatASaveInTheEditorWrites) {
  for (const std::uint8_t game : {kTr4, kTr5}) {
    const std::string path = CopySample(game == kTr4 ? "tr4" : "tr5");
    Findings findings;
    auto built = ByName(ScriptFiles(ThroughText(Read(path, game), findings)));
    EXPECT_EQ(Lines(findings), "");
    EXPECT_EQ(built, SavedInEditor(path, game));
    EXPECT_EQ(built["SCRIPT.DAT"], Bytes(path));
  }
}

TEST_F(ScriptToolTest, BuildsOfAnyExportedScriptWhatASaveInTheEditorWrites) {
  int saves = 0;
  const int wanted = GeneratedScripts();
  for (unsigned seed = 0; saves < 2 * wanted; ++seed) {
    ASSERT_LT(seed, 4U * static_cast<unsigned>(wanted)) << "too few can be saved";
    ScriptGenerator generator(seed);
    const std::uint8_t game = seed % 2 == 0 ? kTr4 : kTr5;
    const std::string path = Path("SCRIPT.DAT");
    MakeFile(path, generator.Script(game));
    for (int i = 0; i < kLanguageCount; ++i) {
      const std::string language = Path(LanguageFileName(static_cast<Language>(i)));
      fs::remove(language);
      if (generator.Below(5) == 0) MakeFile(language, generator.LanguageFile());
    }
    const auto saved = SavedInEditor(path, game);
    if (saved.empty()) continue;
    ++saves;
    const ScriptValue value = Read(path, game);
    Findings findings;
    const ScriptValue again = ThroughText(value, findings);
    ASSERT_FALSE(HasSeverity(findings, Severity::Error)) << seed << '\n' << Lines(findings);
    EXPECT_EQ(ByName(ScriptFiles(again)), saved) << "seed " << seed;

    // What a save loses of a stream is named exactly if the saved stream is another one.
    const ScriptScan scan = ScanScript(value.source.bytes, FormatOf(game));
    const Findings losses = SaveLosses(value, scan);
    for (int i = 0; i < value.model.NumLevels; ++i) {
      const ScannedStream& stream = scan.levels[static_cast<std::size_t>(i)];
      const bool same = value.source.bytes.substr(stream.begin, stream.end - stream.begin) ==
                        BuiltStream(value.model, i);
      const bool named = std::any_of(losses.begin(), losses.end(), [&](const Finding& loss) {
        return loss.place == LevelPlace(i);
      });
      EXPECT_EQ(named, !same) << "seed " << seed << ", level " << i;
    }
    if (HasFailure()) break;
  }
}

TEST_F(ScriptToolTest, KeepsEveryByteOfATextInBothForms) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  for (const std::string& bytes :
       {all + '\0', all, std::string(1, '\0'), std::string(), std::string("A\\x41\0", 6),
        std::string("A\\x--\0", 6), std::string("\\x--"), std::string("\\")}) {
    EXPECT_EQ(EntryBytes(EscapedEntry(bytes)), bytes);
    EXPECT_EQ(EntryBytes(EscapedEntry(bytes, true)), bytes);
  }
  EXPECT_EQ(EscapedEntry("DATA\\A\x7F\x81\x8D\x8F\x90\x9D\n\x80"),
            "DATA\\A\\x7F\\x81\\x8D\\x8F\\x90\\x9D\\x0A\u20ac\\x--");
  EXPECT_EQ(JsonDocument(EntryToJson(std::string("\x01\x7f\x81\x80\0", 5))),
            "\"\\u0001\\u007F\\u0081\u20ac\"\n");
  EXPECT_THROW(EntryBytes("\u0416"), NoBytes);
  EXPECT_THROW(EntryBytes("\xFF"), NoBytes);
}

/// A script that has something of all, on two levels.
constexpr const char* kHandWritten = R"({"Format": "quillmark-script", "Version": 1,
  "ScriptKind": 5, "FileNames": ["T", "L"], "Levels": [{}, {"FileNameIndex": 1, "NameString": 1,
  "NameStringText": "two", "Objects": [{"Kind": "PuzzleCombo", "Id": 4, "Combo": 2,
  "StringId": 1, "Params": [1, -1, 2, -2, 3, -3]}], "Tr5ListA": [-2], "Cuts": [{"Type": 4,
  "Value": 9}], "LevelFlags": ["NoLevel", "YoungLara"]}],
  "Languages": {"US": {"Count1": 1, "Count2": 0, "Count3": 1, "Strings": ["one", "two"]}}})";

TEST_F(ScriptToolTest, BuildsAHandWrittenScript) {
  Findings findings;
  const std::vector<NewFile> files = ScriptFiles(ScriptFromText(kHandWritten, findings));
  EXPECT_EQ(Lines(findings), "");
  ASSERT_EQ(files.size(), 2U);
  const std::string streams = Hex("82 0000 00 00 83") +
                              Hex("c8 0100 0100 ffff 0200 feff 0300 fdff 88 09 d9 feff") +
                              Hex("81 01 0180 01 00 83");
  EXPECT_EQ(files[0].bytes.substr(0, 16), Hex("0000 0000 00000000 00 02 02 00 0400 2100"));
  EXPECT_EQ(files[0].bytes.substr(56, 12 + streams.size()),
            Hex("0000 0200 54 00 4c 00 0000 0600") + streams);
  EXPECT_TRUE(files[0].bytes.ends_with(std::string("JAPAN.DAT\0DUTCH.DAT\0", 20)));
  EXPECT_EQ(files[1].bytes, Hex("0100 0000 0100 0400 0000 0400 0000 0400 33323900 282b3300"));
}

TEST_F(ScriptToolTest, NamesEachThingThatCanNotBeBuilt) {
  using Case = std::tuple<const char*, const char*, const char*>;
  for (const auto& [before, after, expected] : std::initializer_list<Case>{
           {"5, \"FileNames\"", "6, \"LanguageNames\": [3], \"FileNames\"",
            "wrong-kind /ScriptKind\nwrong-type /LanguageNames\nwrong-type /LanguageNames/0\n"},
           {"\"Type\": 4", "\"Type\": 5", "out-of-range /Levels/1/Cuts/0/Type\n"},
           {"\"NameString\": 1,", "\"NameString\": 7,",
            "comment-differs /Levels/1/NameStringText\nstring-missing /Levels/1/NameString\n"},
           {"\"two\",", "\"too\",", "comment-differs /Levels/1/NameStringText\n"},
           {"\"two\",", "[],", "comment-differs /Levels/1/NameStringText\n"},
           {"0, \"Count3\": 1, \"Strings\": [\"one\", \"two", "0, \"Strings\": [\"\\\\\", \"too",
            "wrong-count /Languages/US/Strings\nmask-character /Languages/US/Strings/0\n"},
           {"\"US\"", "\"GERMAN\": {}, \"US\"",
            "string-missing /Levels/1/NameString\nstring-missing "
            "/Levels/1/Objects/0/StringId\n"}}) {
    std::string json = kHandWritten;
    json.replace(json.find(before), std::string(before).size(), after);
    EXPECT_EQ(Lines(ErrorsOf(json)), expected) << after;
  }
}

TEST_F(ScriptToolTest, RefusesTextsThatWouldTakeTooMuch) {
  std::string members;
  for (int i = 0; i <= 1000; ++i) members += ",\"" + std::to_string(i) + "\":1";
  const std::string before = R"({"lost":)";
  for (const std::string& text :
       {before + Repeated("[", 100000) + Repeated("]", 100000) + "}",
        before + "[" + Repeated("1,", 400000) + "1]}", before + "1" + members + "}",
        "{\"" + std::string(201, 'k') + "\":1}"}) {
    const Findings errors = ErrorsOf(text);
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_TRUE(Lines(errors).starts_with("too-large ")) << text.substr(0, 80);
    EXPECT_LT(errors[0].place.size(), 250U);
  }
  // As deep, with as long a name, as many members and values as there may be; 51 times 999 members
  // are not known.
  const std::string unknown = "{\"Kind\":1" + members.substr(0, members.find(",\"999\"")) + "}";
  const Findings errors =
      ErrorsOf(R"({"Format": "quillmark-script", "Version": 1, "ScriptKind": 5, "lost": {")" +
               std::string(200, 'k') + "\":" + Repeated("[", 30) + "1" + Repeated(",1", 348909) +
               Repeated("]", 30) + "}, \"Levels\": [{}, {\"Objects\": [" +
               Repeated(unknown + ",", 50) + unknown + "]}]}");
  ASSERT_EQ(errors.size(), 50001U);
  EXPECT_EQ(Lines({errors.back()}), "too-many \n");
}

TEST_F(ScriptToolTest, ShowsOnlyTheStartOfALongTextBesideItsNumber) {
  Findings findings;
  Json json = ParseJson(kHandWritten, findings);
  json["Languages"]["US"]["Strings"][1] = std::string(30000, 'y');
  json["Levels"][1]["NameStringText"] = std::string(30000, 'y');
  const ScriptValue value = ScriptFromJson(json, findings);
  EXPECT_EQ(Lines(findings), "");
  EXPECT_LT(ScriptText(value, 1).size(), 1000U);
  EXPECT_EQ(ScriptToJson(value, {})["Levels"][1]["NameStringText"], std::string(200, 'y'));
}

TEST_F(ScriptToolTest, NamesCountsAndSizesThatAreTooLarge) {
  Findings findings;
  Json json = ParseJson(kHandWritten, findings);
  Json& level = json["Levels"][1];
  level["Objects"] = Json(14, {{"Kind", "Key"}, {"Id", 1}, {"StringId", 1}});
  level["Cuts"] = Json(101, {{"Type", 1}});
  json["Levels"][0]["Tr5ListB"] = Json(33, 1);
  level["Cuts"][100]["Type"] = 5;
  json["FileNames"] = Json(256, std::string(200, 'x'));
  json["FileNames"][255] = 3;
  json["Languages"]["US"]["Strings"][0] = std::string(32767, 'y');
  ScriptFromJson(json, findings);
  EXPECT_EQ(Lines(findings),
            "over-limit /FileNames\nwrong-type /FileNames/255\nover-limit /Levels/1/Cuts\n"
            "out-of-range /Levels/1/Cuts/100/Type\nover-limit /FileNames\n"
            "over-limit /Levels/1/Objects\nover-limit /Languages/US\nover-limit /Languages/US\n");

  findings.clear();
  level["Objects"] = Json::array();
  for (const std::string kind : {"Key", "Puzzle", "Pickup", "PuzzleCombo"}) {
    const Json object = {
        {"Kind", kind}, {"Id", 1}, {"StringId", 1}, {"Combo", kind == "PuzzleCombo" ? 1 : 0}};
    for (int i = 0; i < 13; ++i) level["Objects"].push_back(object);
  }
  // 52 objects, 100 cuts, 13 words and the closing pair are 1026 bytes.
  level["Cuts"] = Json(100, {{"Type", 1}});
  level["Tr5ListA"] = Json(13, 1);
  json["FileNames"] = {"T", "L"};
  json["Languages"]["US"]["Strings"][0] = "one";
  ScriptFromJson(json, findings);
  EXPECT_EQ(Lines(findings), "over-limit /Levels/1\n");
}

TEST_F(ScriptToolTest, ComparesLevelsByTheirFilesAndListsByWhatTheyShare) {
  const std::string path = CopySample("tr5");
  const ScriptValue first = Rewritten(Read(path, kTr5), "first");
  ScriptValue second = Read(path, kTr5);
  EXPECT_TRUE(Differences(first, Rewritten(second, "same")).empty());

  // Level 1 goes, so that the others move up; one of them gets an object in front and a new string.
  ScriptModel& model = second.model;
  for (int i = 1; i + 1 < model.NumLevels; ++i) model.Levels[i] = model.Levels[i + 1];
  model.NumLevels = model.NumLevels - 1;
  LevelRecord& level = model.Levels[1];
  for (int i = level.ObjectCount; i > 0; --i) level.Objects[i] = level.Objects[i - 1];
  ++level.ObjectCount;
  level.Objects[0] = {};
  level.Objects[0].Id = 8;
  model.FileNames[0] = "A";
  second.languages[0].Strings.Set(3, std::string("A\nB\0", 4));
  std::string told;
  int moved = 0;
  for (const Difference& one : Differences(first, Rewritten(second, "second"))) {
    if (one.name == "Number") {
      moved += std::stoi(*one.first) - std::stoi(*one.second);
      continue;
    }
    told += one.part + '|' + one.name + '|' + one.first.value_or("") + '|' +
            one.second.value_or("") + '\n';
  }
  EXPECT_EQ(moved, model.NumLevels - 1) << "each by one";
  EXPECT_EQ(told,
            "Script|FileNames 0|DATA\\TITLE|\nScript|FileNames 0||A\\x--\n"
            "Level DATA\\HALT||level 1|\n"
            "Level DATA\\TINORCH|Objects 0||Kind Puzzle, Id 8, StringId 0 \"Nine Winters\", Params "
            "0 0 0 0 0 0\nLanguage ENGLISH|String 3|" +
                EscapedEntry(first.languages[0].Strings[3]) + "|A\\x0AB\n");
}

}  // namespace
}  // namespace quillmark
