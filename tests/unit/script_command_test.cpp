// quillmark-script as a program: what it prints, what it ends with, which files it writes.

#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <set>
#include <tuple>

#include "tools/json_text.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;
using Names = std::set<std::string>;

const Names kSampleFiles = {"ENGLISH.DAT", "GERMAN.DAT", "ITALIAN.DAT", "SCRIPT.DAT"};

class ScriptCommandTest : public CoreTest {
 protected:
  int Run(const std::string& arguments) const { return CoreTest::Run(QUILLMARK_SCRIPT, arguments); }
};

TEST_F(ScriptCommandTest, EndsWithItsStatusAndSaysWhy) {
  const std::string script = CopySample("tr4");
  const std::string folder = Path("tr4");
  const std::string table = Path("table");
  MakeFile(Path("both"), ScriptBytes({}));
  MakeFile(Path("refused"), Hex("0000 0100"));
  MakeFile(Path("open"), ScriptBytes({Hex("82 0000 00 00 00")}));
  MakeFile(Path("large"), Zeros((1 << 20) + 1));
  MakeFile(Path("warned"), ScriptBytes({Hex("05 82 0000 00 00 83")}));
  MakeFile(Path("bad.json"), "{}");
  MakeFile(table, "Number,Group\n");
  using Case = std::tuple<std::string, int, const char*>;
  for (const auto& [arguments, status, error] : std::initializer_list<Case>{
           {"", 64, "usage:"},
           {"show", 64, "1 path is needed"},
           {"show " + script + " --json", 64, "there is no option --json"},
           {"show " + script + " --game tr3", 64, "--game is tr4 or tr5"},
           {"show " + script + " --level", 64, "needs a value"},
           {"show " + script + " --level 12", 1, "there is no level 12"},
           {"show " + Path("none"), 3, "is not there"},
           {"show " + Path("both"), 3, "say --game tr4 or --game tr5"},
           {"show " + Path("warned"), 3, "a save changes the streams of 1 of 1 levels"},
           {"show " + Path("refused") + " --game tr4", 3, "it is no script"},
           {"export " + Path("open") + " --game tr5", 3, "lacks its closing pair"},
           {"show " + Path("large"), 3, "is too large"},
           {"check " + script, 0, ""},
           {"check " + Path("both") + " --game tr5", 1, ""},
           {"check " + Path("open") + " --game tr5", 2, ""},
           {"check " + Path("refused"), 3, "say --game"},
           {"diff " + script + ' ' + folder, 0, ""},
           {"diff " + script + " " + Path("warned") + " --game tr5", 2, "lacks its closing pair"},
           {"diff " + script, 2, "2 paths are needed"},
           {"diff - - <" + script, 2, "only one of the two"},
           {"diff " + folder + " - <" + script, 0, ""},
           {"show " + Path("tr4/none/x"), 3, "is not there"},
           {"build " + folder + " " + Path("new"), 3, "is a folder"},
           {"build " + script + " " + folder + " --force", 1, "is no JSON"},
           {"export " + script + " -o " + folder, 1, "is no file"},
           {"export " + script + " -o " + Path("tr4/script.dat"), 1, "is what is read"},
           {"strings " + folder + " -o " + Path("tr4/GERMAN.DAT"), 1, "is what is read"},
           {"build " + Path("bad.json") + " " + Path("new"), 1, "wrong-format"},
           {"strings " + script + " --take " + table, 1, "number-missing"},
           {"strings " + Path("both"), 1, "no language file"},
           {"listing list tr4 " + script, 0, ""},
           {"listing list", 64, "usage"}}) {
    EXPECT_EQ(Run(arguments), status) << arguments << '\n' << Error();
    EXPECT_NE(Error().find(error), std::string::npos) << arguments << '\n' << Error();
    EXPECT_EQ(Error().empty(), *error == '\0') << arguments << '\n' << Error();
  }
  EXPECT_FALSE(fs::exists(Path("new")));
  EXPECT_EQ(FilesIn(Path("tr4")), kSampleFiles);
}

TEST_F(ScriptCommandTest, ShowsTheSameTextOfAFileWhereverItLies) {
  const std::string script = CopySample("tr5");
  ASSERT_EQ(Run("show " + script), 0);
  const std::string text = Out();
  EXPECT_TRUE(text.starts_with("Script of TR5\n  ScriptFlags: 7\n"));
  EXPECT_EQ(text.find("Language ENGLISH"), std::string::npos);
  fs::copy_file(script, Path("blob_4711"));
  ASSERT_EQ(Run("show --game tr5 " + Path("blob_4711")), 0);
  EXPECT_EQ(Out(), text);
  ASSERT_EQ(Run("show - <" + script), 0);
  EXPECT_EQ(Out(), text);
  ASSERT_EQ(Run("show /dev/stdin <" + script), 0);
  EXPECT_EQ(Out(), text);
  ASSERT_EQ(Run("show " + Path("tr5")), 0);
  EXPECT_NE(Out().find("NameString: 1 \"Frostline Halt\""), std::string::npos);
}

TEST_F(ScriptCommandTest, WritesToPipesAndLetsOthersReadNewFiles) {
  const std::string script = CopySample("tr4");
  ASSERT_EQ(Run("export " + script), 0);
  const std::string text = Out();
  ASSERT_EQ(Run("export -o - " + script), 0);
  EXPECT_EQ(Out(), text);
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

TEST_F(ScriptCommandTest, BuildsAllFilesOrNone) {
  const std::string script = CopySample("tr4");
  const std::string json = Path("a.json");
  ASSERT_EQ(Run("export " + script + " -o " + json), 0);
  ASSERT_EQ(Run("build " + json + " " + Path("new")), 0) << Error();
  EXPECT_EQ(FilesIn(Path("new")), kSampleFiles);
  EXPECT_EQ(Bytes(Path("new/SCRIPT.DAT")), Bytes(script));
  EXPECT_EQ(Bytes(Path("new/GERMAN.DAT")).size(), Bytes(Path("tr4/GERMAN.DAT")).size() + 1);

  // The script is there under another letter case, one language can't take its place.
  fs::create_directories(Path("old/ITALIAN.DAT/full"));
  MakeFile(Path("old/Script.dat"), "old");
  MakeFile(Path("old/JAPAN.DAT"), "");
  EXPECT_EQ(Run("build " + json + " " + Path("old")), 1);
  EXPECT_NE(Error().find("is there already"), std::string::npos);
  fs::remove_all(Path("old/ITALIAN.DAT"));
  ASSERT_EQ(Run("build " + json + " " + Path("old") + " --force"), 0) << Error();
  EXPECT_NE(Error().find("JAPAN.DAT' stays"), std::string::npos);
  EXPECT_EQ(FilesIn(Path("old")),
            (Names{"ENGLISH.DAT", "GERMAN.DAT", "ITALIAN.DAT", "JAPAN.DAT", "Script.dat"}));
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
  ASSERT_EQ(Run("strings " + script + " --take " + table), 0) << Error();
  EXPECT_EQ(Error(), "ENGLISH.DAT is changed\n");
  EXPECT_EQ(Bytes(Path("tr5/FRENCH.DAT")), french);
  EXPECT_EQ(Bytes(Path("tr5/ENGLISH.DAT")).size(), english.size());
  ASSERT_EQ(Run("strings " + script), 0);
  EXPECT_EQ(Out(), text);
}

TEST_F(ScriptCommandTest, TellsFindingsAndDifferencesAsJson) {
  MakeFile(Path("one"), ScriptBytes({Hex("05 82 0000 00 00 83")}));
  MakeFile(Path("two"), ScriptBytes({Hex("82 0000 00 09 83")}));
  EXPECT_EQ(Run("check --json --game tr5 " + Path("one")), 1);
  const Json findings = Json::parse(Out());
  EXPECT_EQ(findings["Game"], "TR5");
  EXPECT_EQ(findings["Findings"].back(),
            Json::parse(R"({"Id": "unknown-byte", "Severity": "warning", "Place": "/Levels/0",
                "Sentence": "a save leaves out what is no opcode of TR5: 05 at 0"})"));
  EXPECT_EQ(Run("diff --json --game tr5 " + Path("one") + " " + Path("two")), 1);
  EXPECT_EQ(Json::parse(Out())["Differences"][0],
            Json::parse(R"({"Part": "Level title", "Name": "AudioTrack", "First": "0",
                "Second": "9"})"));
  ASSERT_EQ(Run("diff --game tr5 " + Path("one") + " " + Path("two")), 1);
  EXPECT_TRUE(Out().starts_with("Level title\n- AudioTrack: 0\n+ AudioTrack: 9\n")) << Out();
}

}  // namespace
}  // namespace quillmark
