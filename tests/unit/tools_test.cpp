// The project's own programs: what they print, refuse and leave alone.

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <tuple>

#include "tools/json_text.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

const std::set<std::string> kSampleFiles = {"ENGLISH.DAT", "GERMAN.DAT", "ITALIAN.DAT",
                                            "SCRIPT.DAT"};

class ToolsTest : public CoreTest {
 protected:
  /// Runs a copy of a program, so that its own folder is the temporary one, and gives its status.
  int Run(const std::string& program, const std::string& arguments) const {
    const std::string copy = Path("program.exe");
    fs::copy_file(program, copy, fs::copy_options::overwrite_existing);
    return CoreTest::Run(copy, arguments);
  }
  int Listing(const std::string& arguments) const { return Run(QUILLMARK_LISTING, arguments); }
};

TEST_F(ToolsTest, ListingEndsWithItsStatus) {
  const std::string script = CopySample("tr4");
  const std::string german = Bytes(Path("tr4/GERMAN.DAT"));
  MakeFile(Path("target"), "");
  MakeFile(Path("refused"), Hex("0000 0100"));
  MakeFile(Path("faulty"), ScriptBytes({kClose}).replace(56, 2, Word(-32768)));
  MakeFile(Path("open"), ScriptBytes({Hex("82 0000 00 00 00")}));
  fs::create_directories(Path("blocked/GERMAN.DAT"));
  MakeFile(Path("blocked/SCRIPT.DAT"), "");
  using Case = std::tuple<std::string, int, const char*>;
  for (const auto& [arguments, status, error] : std::initializer_list<Case>{
           {"list tr4 " + script, 0, ""},
           {"resave tr4 " + script + " " + Path("target"), 0, ""},
           {"list tr5 " + Path("refused"), 1, "refused: "},
           {"resave tr4 " + script + " " + Path("blocked/SCRIPT.DAT"), 1, "refused: "},
           {"list tr5 " + Path("faulty"), 2, "overflow fault: "},
           {"list tr5 " + Path("none"), 2, "file fault: "},
           {"resave tr4 " + script + " " + Path("none"), 2, "file fault: "},
           {"list tr4 \"\"", 2, "file fault: "},
           {"list tr5 " + Path("open"), 3, "Error: 0x83 opcode (End-of-data) not found!"},
           {"list tr6 " + script, 64, "usage"},
           {"list tr4", 64, "usage"},
           {"resave tr4 " + script, 64, "usage"},
           {"list tr4 " + script + " " + script, 64, "usage"}}) {
    EXPECT_EQ(Listing(arguments), status) << arguments;
    EXPECT_TRUE(Error().starts_with(error)) << arguments;
    EXPECT_EQ(Out().empty(), status != 0 || arguments.starts_with("resave"));
  }
  EXPECT_FALSE(fs::exists(Path("none")));
  EXPECT_EQ(Bytes(Path("target")), Bytes(script));
  EXPECT_EQ(Bytes(Path("GERMAN.DAT")).size(), german.size() + 1);
  EXPECT_FALSE(fs::exists(Path("scriptdata.tmp"))) << "the program may lie where all are";
}

/// One level, without its quotes.
constexpr const char* kTr4Level =
    "{PuzzleCount:1,Puzzles:[{Params:[0,768,16384,0,-32768,2],Id:8,StringId:119}],KeyCount:0,"
    "Keys:[],PuzzleComboCount:0,PuzzleCombos:[],KeyComboCount:0,KeyCombos:[],PickupCount:1,"
    "Pickups:[{Params:[8,640,0,8192,0,2],Id:3,StringId:118}],PickupComboCount:0,PickupCombos:[],"
    "ExamineCount:1,Examines:[{Params:[-8,800,-16384,0,16384,8],Id:2,StringId:107}],Fmv:6,Cut:30,"
    "CutCount:0,Cuts:[],ResetHub:0,Layer1On:-1,Layer2On:-1,Layer1:[16,16,40,3],Layer2:[24,24,48,"
    "6],LensFlareOn:-1,LensFlarePos:[28672,-4096,8192],LensFlareColour:[208,208,255],MirrorRoom:0,"
    "MirrorValue:0,MirrorOn:0,Camera:[45056,-512,45056,46080,-768,47104],CameraRoom:2,"
    "NameString:11,LevelFlags:-32196,FileNameIndex:11,AudioTrack:120,MipCount:0,Mips:[{Low:0,"
    "High:0}],UVRotate:0,UVRotateOn:0,LegendOn:-1,Legend:15,Fog:[0,0,0],FogOn:0,ObjectCount:3,"
    "Objects:[{Kind:0,Id:8,StringId:119,Combo:0,Params:[0,768,16384,0,-32768,2]},{Kind:2,Id:3,"
    "StringId:118,Combo:0,Params:[8,640,0,8192,0,2]},{Kind:6,Id:2,StringId:107,Combo:0,Params:[-8,"
    "800,-16384,0,16384,8]}],Tr5ListA:[],Tr5ListACount:0,Tr5ListB:[],Tr5ListBCount:0,"
    "LevelRaw:{Length:10,Bytes:a6adb080898a8c848d91}}";

TEST_F(ToolsTest, ListingTellsTheSampleAndChangesNoFile) {
  const std::string script = CopySample("tr4");
  const std::string italian = Bytes(Path("tr4/ITALIAN.DAT"));
  EXPECT_EQ(Listing("list tr4 " + script), 0);
  for (const char c : Out()) ASSERT_TRUE((c >= ' ' && c < 0x7f) || c == '\n' || c == '\r');
  const Json listing = Json::parse(Out());
  std::string level = JsonLine(listing["Levels"][11]);
  std::erase(level, '"');
  EXPECT_EQ(level, kTr4Level);
  EXPECT_EQ(listing["Levels"][5]["MirrorRoom"], 0x25);
  EXPECT_EQ(listing["Languages"].begin().key(), "ENGLISH");
  EXPECT_EQ(listing["Languages"]["ITALIAN"]["Total"], 120);
  EXPECT_EQ(listing["Languages"]["ITALIAN"]["Loaded"], -1);
  EXPECT_EQ(listing["Languages"]["US"]["Strings"], Json::array());
  EXPECT_EQ(listing["FileNames"][11], TextOfBytes("DATA\\EBB" + Zeros(1)));
  EXPECT_FALSE(fs::exists(Path("scriptdata.tmp")));
  EXPECT_EQ(Bytes(Path("tr4/ITALIAN.DAT")), italian);
}

TEST_F(ToolsTest, ListingEscapesWhatIsNoPlainCharacter) {
  EXPECT_EQ(JsonLine(TextOfBytes(Hex("00 08 09 0a 0c 0d 1f 22 5c 7e 7f 80 ff"))),
            R"("\u0000\u0008\u0009\u000a\u000c\u000d\u001f\"\\~\u007f\u0080\u00ff")");
  const char* const nested = R"({"a\"":[1,-2,[],{}],"b":{"c":"\u00e9\u0000"}})";
  std::ostringstream printed;
  PrintJson(printed, Json::parse(nested));
  EXPECT_EQ(printed.str(), nested);
}

TEST_F(ToolsTest, ListingRefusesToSaveWhatItCouldReadOnlyInPart) {
  const std::string script = CopySample("tr5");
  fs::copy(Path("tr5"), Path("target"));
  MakeFile(Path("tr5/FRENCH.DAT"), Word(2050) + Zeros(10));
  EXPECT_EQ(Listing("list tr5 " + script), 1);
  EXPECT_EQ(Json::parse(Out())["Languages"]["FRENCH"]["Loaded"], 0);
  EXPECT_EQ(Listing("resave tr5 " + script + " " + Path("target/SCRIPT.DAT")), 1);
  EXPECT_FALSE(fs::exists(Path("scriptdata.tmp")));
}

#ifdef QUILLMARK_COMPILER
TEST_F(ToolsTest, CompilerTakesOnlyTablesThatMatchTheEnglishOne) {
  MakeFile(Path("english"), "# one\n0\tError\tError\n\n2\tYes\tYes\n");
  const auto compile = [&](std::string_view texts) {
    MakeFile(Path("texts"), texts);
    return Run(QUILLMARK_COMPILER,
               "table " + Path("english") + " " + Path("texts") + " " + Path("table"));
  };
  EXPECT_EQ(compile("2\tYes\tS\u00ec\\n\\\\\r\n0\tError\tErrore"), 0);
  EXPECT_EQ(Bytes(Path("table")), Hex("cd00cdcd") + std::string("Errore\0\0S\xEC\n\\\0", 13));
  EXPECT_EQ(Run(QUILLMARK_COMPILER, "names " + Path("english") + " " + Path("names")), 0);
  EXPECT_EQ(Bytes(Path("names")), "Error\nReserved1\nYes\n");
  for (const auto& [line, error] : std::initializer_list<std::pair<const char*, const char*>>{
           {"", "the entry 2, Yes, is missing"},
           {"2\tYeah\tS", "the entry 2 is called Yeah, but Yes in English"},
           {"2\tYes\tS\n1\tNo\tN", "the entry 1, No, is unknown in English"},
           {"2\tYes\tS\n2\tYes\tS", "texts:3: the entry 2 stands twice"},
           {"2\tYes\t\u03a9", "has a character outside the code page"},
           {"2\tYes\t\\t", "a backslash has to be written as"},
           {"2\tYes", "NUMBER, NAME and TEXT need two tabs"},
           {"2\tYes,\tS", "'Yes,' is no name"},
           {"4097\tYes\tS", "'4097' is no entry number"},
           {"-1\tYes\tS", "'-1' is no entry number"}}) {
    fs::remove(Path("table"));
    EXPECT_EQ(compile("0\tError\tErrore\n" + std::string(line)), 1) << line;
    EXPECT_NE(Error().find(error), std::string::npos) << Error();
    EXPECT_FALSE(fs::exists(Path("table")));
  }
  EXPECT_EQ(compile("#"), 1) << "no entries";
  EXPECT_EQ(Run(QUILLMARK_COMPILER, "table"), 64);
}
#endif

class ScriptCommandTest : public CoreTest {
 protected:
  int Run(const std::string& arguments) const { return CoreTest::Run(QUILLMARK_SCRIPT, arguments); }
};

TEST_F(ScriptCommandTest, EndsWithItsStatusAndSaysWhy) {
  const std::string script = CopySample("tr4");
  const std::string folder = Path("tr4");
  MakeFile(Path("both"), ScriptBytes({}));
  MakeFile(Path("refused"), Hex("0000 0100"));
  MakeFile(Path("open"), ScriptBytes({Hex("82 0000 00 00 00")}));
  MakeFile(Path("warned"), ScriptBytes({Hex("05 82 0000 00 00 83")}));
  using Case = std::tuple<std::string, int, const char*>;
  for (const auto& [arguments, status, error] : std::initializer_list<Case>{
           {"show", 64, "1 path is needed"},
           {"show " + Path("none"), 3, "is not there"},
           {"show " + Path("both"), 3, "say --game tr4 or --game tr5"},
           {"show " + Path("warned"), 3, "a save changes the streams of 1 of 1 levels"},
           {"show " + Path("refused") + " --game tr4", 3, "it is no script"},
           {"export " + Path("open") + " --game tr5", 3, "lacks its closing pair"},
           {"check " + Path("both") + " --game tr5", 1, ""},
           {"check " + Path("open") + " --game tr5", 2, ""},
           {"diff " + script + " " + Path("warned") + " --game tr5", 2, "lacks its closing pair"},
           {"build " + folder + " " + Path("new"), 3, "is a folder"},
           {"build " + script + " " + folder + " --force", 1, "line 1, column 1: this is no JSON"},
           {"export " + script + " -o " + folder, 1, "is no file"},
           {"export " + script + " -o " + Path("tr4/script.dat"), 1, "is what is read"},
           {"strings " + folder + " -o " + Path("tr4/GERMAN.DAT"), 1, "is what is read"},
           {"strings " + Path("both"), 1, "no language file"},
           {"listing list", 64, "usage"}}) {
    EXPECT_EQ(Run(arguments), status) << arguments << '\n' << Error();
    EXPECT_NE(Error().find(error), std::string::npos) << arguments << '\n' << Error();
    EXPECT_EQ(Error().empty(), *error == '\0') << arguments << '\n' << Error();
  }
  EXPECT_FALSE(fs::exists(Path("new")));
  EXPECT_EQ(FilesIn(Path("tr4")), kSampleFiles);
}

#ifndef _WIN32
TEST_F(ScriptCommandTest, ReadsAndWritesPipesAndLetsOthersReadNewFiles) {
  const std::string script = CopySample("tr4");
  ASSERT_EQ(Run("export " + script), 0);
  const std::string text = Out();
  const std::string pipe = Path("pipe");
  const std::string command = "umask 022; cd " + Path("") + "; mkfifo pipe; cat pipe >read & " +
                              QUILLMARK_SCRIPT + " export tr4 -o pipe; " + QUILLMARK_SCRIPT +
                              " export tr4 -o new; wait";
  ASSERT_EQ(std::system(("timeout 60 sh -c '" + command + "'").c_str()), 0);
  EXPECT_TRUE(fs::is_fifo(pipe));
  EXPECT_EQ(Bytes(Path("read")), text);
  EXPECT_EQ(Bytes(Path("new")), text);
  EXPECT_EQ(fs::status(Path("new")).permissions(), fs::perms{0644});
}

TEST_F(ScriptCommandTest, AnswersAsTheTranscriptSays) {
  const std::string transcript = Bytes(QUILLMARK_TRANSCRIPT);
  const std::string place = "cd " + Path("") + " && export TEXTS=" QUILLMARK_ADVENTURES " PATH=" +
                            fs::path(QUILLMARK_SCRIPT).parent_path().string() + ":$PATH && { {";
  std::istringstream lines(transcript);
  std::string told;
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("$ ")) continue;
    CoreTest::Run(place, line.substr(2) + "; } 2>&1; echo = $?; } | sed '/^= 0$/d'");
    told += line + '\n' + WithoutProgress(Replaced(Out(), Path(""), ""));
  }
  EXPECT_EQ(told, transcript);
}
#endif

TEST_F(ScriptCommandTest, BuildsAllFilesOrNone) {
  const std::string script = CopySample("tr4");
  const std::string json = Path("a.json");
  ASSERT_EQ(Run("export " + script + " -o " + json), 0);
  ASSERT_EQ(Run("build " + json + " " + Path("new")), 0);
  EXPECT_EQ(Error(), "");
  EXPECT_EQ(FilesIn(Path("new")), kSampleFiles);
  EXPECT_EQ(Bytes(Path("new/SCRIPT.DAT")), Bytes(script));
  EXPECT_EQ(Bytes(Path("new/GERMAN.DAT")).size(), Bytes(Path("tr4/GERMAN.DAT")).size() + 1);
  MakeFile(Path("b.json"), R"({"Format": "quillmark-script", "Version": 1, "ScriptKind": 4,
      "FileNames": ["T"], "Levels": [{"Fog": [1, 0, 0]}]})");
  ASSERT_EQ(Run("build " + Path("b.json") + " " + Path("fog")), 0);
  EXPECT_NE(Error().find("it reads as 0 0 0"), std::string::npos) << Error();

  // The script is there under another letter case, one language can't take its place.
  fs::create_directories(Path("old/ITALIAN.DAT/full"));
  MakeFile(Path("old/Script.dat"), "old");
  MakeFile(Path("old/JAPAN.DAT"), "");
  EXPECT_EQ(Run("build " + json + " " + Path("old")), 1);
  EXPECT_NE(Error().find("is there already"), std::string::npos);
  fs::remove_all(Path("old/ITALIAN.DAT"));
  ASSERT_EQ(Run("build " + json + " " + Path("old") + " --force"), 0) << Error();
  EXPECT_NE(Error().find("JAPAN.DAT' stays"), std::string::npos);
  EXPECT_EQ(FilesIn(Path("old")), (std::set<std::string>{"ENGLISH.DAT", "GERMAN.DAT", "ITALIAN.DAT",
                                                         "JAPAN.DAT", "Script.dat"}));
  EXPECT_EQ(Bytes(Path("old/Script.dat")), Bytes(script));
}

TEST_F(ScriptCommandTest, TakesATableBackIntoTheFilesThatChange) {
  const std::string script = CopySample("tr5");
  const std::string table = Path("table.csv");
  const std::string french = Bytes(Path("tr5/FRENCH.DAT"));
  const std::string english = Bytes(Path("tr5/ENGLISH.DAT"));
  ASSERT_EQ(Run("strings " + script + " -o " + table), 0);
  std::string text = Bytes(table);
  const std::size_t at = text.find("Frostline");
  ASSERT_NE(at, std::string::npos);
  MakeFile(table, text.replace(at, 9, "Thawtline"));
  MakeFile(Path("tr5/ENGLISH.DAT.quillmark-old"), "");
  EXPECT_EQ(Run("strings " + script + " --take " + table), 1);
  EXPECT_NE(Error().find("ENGLISH.DAT.quillmark-old' is in the way"), std::string::npos);
  EXPECT_EQ(Error().find("is changed"), std::string::npos);
  fs::remove(Path("tr5/ENGLISH.DAT.quillmark-old"));
  ASSERT_EQ(Run("strings " + script + " --take " + table), 0) << Error();
  EXPECT_EQ(Error(), "ENGLISH.DAT is changed\n");
  EXPECT_EQ(Bytes(Path("tr5/FRENCH.DAT")), french);
  EXPECT_EQ(Bytes(Path("tr5/ENGLISH.DAT")).size(), english.size());
  ASSERT_EQ(Run("strings " + script), 0);
  EXPECT_EQ(Out(), text);
}

}  // namespace
}  // namespace quillmark
