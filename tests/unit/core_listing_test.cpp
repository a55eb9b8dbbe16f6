// The listing program: what it prints, refuses and leaves alone.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tools/json_text.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

class CoreListingTest : public CoreTest {
 protected:
  struct Run {
    int status;
    std::string output, errors;
  };

  /// Runs a copy of the program, so that its own folder is the temporary one.
  Run Listing(const std::string& arguments) const {
    const std::string program = Path("listing.exe");
    std::filesystem::copy_file(QUILLMARK_LISTING, program,
                               std::filesystem::copy_options::overwrite_existing);
    const std::string command =
        program + " " + arguments + " >" + Path("out") + " 2>" + Path("err");
    const int status = std::system(command.c_str());
    return {status < 256 ? status : status / 256, Text(Path("out")), Text(Path("err"))};
  }

 private:
  /// What a program has printed, with the system's line ends as one character.
  static std::string Text(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
  }
};

TEST_F(CoreListingTest, EndsWithItsStatus) {
  const std::string script = CopySample("tr4");
  MakeFile(Path("target"), "");
  MakeFile(Path("refused"), Hex("0000 0100"));
  MakeFile(Path("faulty"), ScriptBytes({kClose}).replace(56, 2, Word(-32768)));
  MakeFile(Path("open"), ScriptBytes({Hex("82 0000 00 00 00")}));
  std::filesystem::create_directories(Path("blocked/GERMAN.DAT"));
  MakeFile(Path("blocked/SCRIPT.DAT"), "");
  struct Case {
    std::string arguments;
    int status;
    const char* error;
  };
  for (const Case& c : std::initializer_list<Case>{
           {"list tr4 " + script, 0, ""},
           {"resave tr4 " + script + " " + Path("target"), 0, ""},
           {"list tr5 " + Path("refused"), 1, "refused: "},
           {"resave tr4 " + script + " " + Path("blocked/SCRIPT.DAT"), 1, "refused: "},
           {"list tr5 " + Path("faulty"), 2, "overflow fault: "},
           {"list tr5 " + Path("none"), 2, "file fault: "},
           {"resave tr4 " + script + " " + Path("none"), 2, "file fault: "},
           {"list tr4 \"\"", 2, "file fault: "},
           {"list tr5 " + Path("open"), 3, "Error: 0x83 opcode (End-of-data) not found!\n"},
           {"list tr6 " + script, 64, "usage"},
           {"list tr4", 64, "usage"},
           {"resave tr4 " + script, 64, "usage"},
           {"list tr4 " + script + " " + script, 64, "usage"}}) {
    const Run run = Listing(c.arguments);
    EXPECT_EQ(run.status, c.status) << c.arguments;
    EXPECT_EQ(run.errors.substr(0, std::string(c.error).size()), c.error);
    EXPECT_EQ(run.output.empty(), c.status != 0 || c.arguments.starts_with("resave"));
  }
  EXPECT_FALSE(std::filesystem::exists(Path("none")));
  EXPECT_EQ(Bytes(Path("target")), Bytes(script));
  EXPECT_EQ(Bytes(Path("GERMAN.DAT")).size(), Bytes(Path("tr4/GERMAN.DAT")).size() + 1);
}

TEST_F(CoreListingTest, ListsPlainAsciiAndChangesNoFile) {
  const std::string script = CopySample("tr4");
  const std::string italian = Bytes(Path("tr4/ITALIAN.DAT"));
  const Run run = Listing("list tr4 " + script);
  for (const char c : run.output) ASSERT_TRUE((c >= ' ' && c < 0x7f) || c == '\n');
  const Json listing = Json::parse(run.output);
  EXPECT_EQ(listing["Languages"].begin().key(), "ENGLISH");
  EXPECT_EQ(listing["Languages"]["ITALIAN"]["Total"], 120);
  EXPECT_EQ(listing["Languages"]["ITALIAN"]["Loaded"], -1);
  EXPECT_EQ(listing["Languages"]["US"]["Strings"], Json::array());
  EXPECT_EQ(listing["FileNames"][11], TextOfBytes("DATA\\EBB" + Zeros(1)));
  EXPECT_FALSE(std::filesystem::exists(Path("scriptdata.tmp")));
  EXPECT_EQ(Bytes(Path("tr4/ITALIAN.DAT")), italian);

  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const std::string line = JsonLine(TextOfBytes(bytes));
  EXPECT_EQ(line.substr(0, 13), "\"\\u0000\\u0001");
  EXPECT_NE(line.find("\\u0008\\u0009\\u000a\\u000b\\u000c\\u000d"), std::string::npos);
  EXPECT_NE(line.find("!\\\"#"), std::string::npos);
  EXPECT_NE(line.find("[\\\\]"), std::string::npos);
  EXPECT_NE(line.find("~\\u007f\\u0080"), std::string::npos);
  EXPECT_TRUE(line.ends_with("\\u00ff\""));
}

TEST_F(CoreListingTest, RefusesToSaveWhatItCouldReadOnlyInPart) {
  const std::string script = CopySample("tr5");
  std::filesystem::copy(Path("tr5"), Path("target"));
  MakeFile(Path("tr5/FRENCH.DAT"), Word(2050) + Zeros(10));
  EXPECT_EQ(Listing("list tr5 " + script).status, 1);
  EXPECT_EQ(Json::parse(Bytes(Path("out")))["Languages"]["FRENCH"]["Loaded"], 0);
  EXPECT_EQ(Listing("resave tr5 " + script + " " + Path("target/SCRIPT.DAT")).status, 1);
  EXPECT_FALSE(std::filesystem::exists(Path("scriptdata.tmp")));
}

}  // namespace
}  // namespace quillmark
