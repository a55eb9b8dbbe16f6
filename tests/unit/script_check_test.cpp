// What is told of a script's faults and limits, and the table of its strings.

#include <algorithm>
#include <filesystem>

#include "tools/json_text.h"
#include "tools/script/check.h"
#include "tools/script/csv.h"
#include "tools/script/string_table.h"
#include "unit/core_fixture.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

const std::string kTitle = Hex("82 0000 00 00 83");
const std::string kObject = Zeros(14);

class ScriptCheckTest : public CoreTest {
 protected:
  /// What is found in a script of these bytes: a line with the identifier and the place of each,
  /// but for what is said of every script that this file makes.
  std::string Found(const std::string& script, std::uint8_t game = kTr5) const {
    MakeFile(Path("SCRIPT.DAT"), script);
    Findings findings = CheckScript(OpenSource(Path("SCRIPT.DAT")), game);
    std::erase_if(findings, [](const Finding& finding) {
      return finding.id == "language-names-doubled" || finding.id == "no-language";
    });
    return Lines(findings);
  }
  std::string FoundIn(const std::vector<std::string>& streams, std::uint8_t game = kTr5) const {
    return Found(ScriptBytes(streams), game);
  }

  void MakeLanguage(const char* name, const std::vector<std::string>& strings) const {
    OffsetTable table = Joined(strings);
    for (char& c : table.entries) c = c == 0 ? c : static_cast<char>(c ^ 0x5C);
    MakeFile(Path(name), Word(static_cast<int>(strings.size())) + Zeros(4) +
                             Word(static_cast<int>(table.entries.size())) + Zeros(4) +
                             table.offsets + table.entries);
  }

  ScriptValue WithLanguages() const {
    MakeFile(Path("SCRIPT.DAT"), ScriptBytes({kTitle}));
    return ReadScript(OpenSource(Path("SCRIPT.DAT")), kTr5, Beside::Languages);
  }

  /// Takes the table and gives the identifiers and places of what it refuses, or the names of the
  /// files that it changes.
  static std::string Taken(const ScriptValue& value, const std::string& table) {
    Findings findings;
    std::string told;
    for (const NewFile& file : TakeTable(value, table, findings)) told += file.path + '\n';
    return told + Lines(findings);
  }
};

TEST_F(ScriptCheckTest, FindsWhatASaveWouldChangeInAStream) {
  using Case = std::tuple<std::string, const char*>;
  for (const auto& [stream, expected] : std::initializer_list<Case>{
           {kClose, ""},
           {Hex("05 06") + kClose, "unknown-byte /Levels/1\n"},
           {Hex("80 00") + kClose, "element-dropped /Levels/1\n"},
           {Hex("90 12") + kClose, "element-dropped /Levels/1\n"},
           {Hex("89 01020304 89 01020304") + kClose, "element-doubled /Levels/1\n"},
           {Hex("84 01 84 02") + kClose, "element-doubled /Levels/1\n"},
           {Hex("84 01 80 02") + kClose, "elements-reordered /Levels/1\n"},
           {Hex("85 01 86 02 85 01") + kClose, ""},
           {kTitle, "closing-changed /Levels/1\n"},
           {"\xc8" + kObject + kClose, ""},
           {"\xc9" + kObject + kClose, "object-without-opcode /Levels/1\n"},
           {Hex("81 00 0000 03 00 83"), "file-name-missing /Levels/1/FileNameIndex\n"}}) {
    EXPECT_EQ(FoundIn({kTitle, stream}), expected) << TextOfBytes(stream);
  }
  EXPECT_EQ(FoundIn({Hex("82 0100 00 00 83")}), "");
  EXPECT_EQ(FoundIn({kCamera + Hex("82 0100 00 00 83"), kClose}, kTr4),
            "closing-changed /Levels/0\nelement-added /Levels/1\n");
}

TEST_F(ScriptCheckTest, ListsTheFirstEightUnknownBytes) {
  MakeFile(Path("SCRIPT.DAT"), ScriptBytes({kTitle, Hex("000102030405060708") + kClose}));
  EXPECT_EQ(CheckScript(OpenSource(Path("SCRIPT.DAT")), kTr5).back().sentence,
            "a save leaves out what is no opcode of TR5: 00 at 0, 01 at 1, 02 at 2, 03 at 3, "
            "04 at 4, 05 at 5, 06 at 6, 07 at 7, ...");
}

TEST_F(ScriptCheckTest, FindsWhatNoLoadGetsPast) {
  for (const std::string& full : {Repeated("\x92" + kObject, 14), Repeated(Hex("85 00"), 101),
                                  Repeated(Hex("da 0000"), 34)}) {
    EXPECT_EQ(FoundIn({kTitle, full + kClose}), "group-full /Levels/1\nload-fails \n");
  }
  EXPECT_EQ(FoundIn({kTitle, Hex("81 00 0000 00 00 00")}),
            "closing-missing /Levels/1\nload-fails \n");
  EXPECT_EQ(FoundIn({kTitle, Hex("05 06 07")}),
            "closing-missing /Levels/1\nlevel-block-size /Levels\nunknown-byte /Levels/1\n");
}

TEST_F(ScriptCheckTest, FindsCountsAndSizesNearTheirLimits) {
  const auto keys = [](int count) { return Repeated("\x92" + kObject, count); };
  const auto cuts = [](int count) { return Repeated(Hex("85 61"), count); };
  const auto words = [](int count) { return Repeated(Hex("d9 6162"), count); };
  // 41 objects, 99 cuts and 7 bytes are 820, which is 80 % of 1025.
  const std::string near = keys(10) + Repeated("\x9e" + kObject, 10) +
                           Repeated("\xaa" + kObject, 10) + Repeated("\xc1" + kObject, 10) +
                           cuts(79);
  using Case = std::tuple<std::string, const char*>;
  for (const auto& [elements, expected] :
       std::initializer_list<Case>{{keys(10), ""},
                                   {keys(11), "near-limit /Levels/1/Objects\n"},
                                   {keys(13), "at-limit /Levels/1/Objects\n"},
                                   {cuts(80), "near-limit /Levels/1/Cuts\n"},
                                   {words(33), "at-limit /Levels/1/Tr5ListA\n"},
                                   {near + words(18), ""},
                                   {near + words(19), "near-limit /Levels/1\n"}}) {
    EXPECT_EQ(FoundIn({kTitle, elements + kClose}), expected) << elements.size();
  }
  EXPECT_EQ(FoundIn(std::vector<std::string>(255, cuts(48) + kClose)),
            "at-limit /Levels\nnear-limit /Levels\nclosing-changed /Levels/0\n");
}

TEST_F(ScriptCheckTest, FindsWhatTheFileHoldsBesideItsStreams) {
  const std::string clean = ScriptBytes({kTitle, kClose});
  EXPECT_EQ(Found(std::string(clean).replace(11, 1, "x")), "reserved-bytes \n");
  EXPECT_EQ(Found(std::string(clean).replace(31, 1, "x").replace(55, 1, "y")),
            "reserved-bytes \nreserved-bytes \n");
  // Two names, the offsets of which make the same three bytes of it, but do not begin with 0.
  std::string odd = std::string(clean).insert(56, Word(1)).replace(58, 2, Word(3));
  odd[10] = 2;
  odd[12] = 4;
  EXPECT_EQ(Found(odd), "file-name-unused /FileNames/1\nfile-name-offsets /FileNames\n");
  EXPECT_EQ(Found(clean + "t"), "tail-dropped /LanguageNames\n");
  EXPECT_EQ(Found(std::string(clean).replace(58, 2, 2, '\0')),
            "level-without-file /Levels/1/FileNameIndex\n");
  EXPECT_EQ(Found(clean.substr(0, clean.size() - 16)), "language-names-missing /LanguageNames\n");
  EXPECT_EQ(Found(clean.substr(0, 60)),
            "file-truncated \nclosing-missing /Levels/0\nclosing-missing /Levels/1\n"
            "language-names-missing /LanguageNames\nlevel-block-size /Levels\n");
  const std::size_t offsets = 56 + 2 + 3;
  EXPECT_EQ(Found(std::string(clean).replace(offsets + 2, 2, Word(9))),
            "stream-offset /Levels/1\n");
}

TEST_F(ScriptCheckTest, FindsWhatIsWrongWithTheLanguages) {
  const std::string named = ScriptBytes({kTitle, Hex("81 02 0000 00 00 83")});
  const std::string one("one\0", 4);
  const std::string two("two\0", 4);
  MakeLanguage("ENGLISH.DAT", {one, two, two});
  EXPECT_EQ(Found(named), "");
  const std::string german = "/Languages/GERMAN/Strings/";
  using Case = std::pair<std::vector<std::string>, std::string>;
  for (const auto& [strings, expected] : std::initializer_list<Case>{
           {{one, two},
            "string-missing /Levels/1/NameString\nstring-counts-differ /Languages/GERMAN\n"},
           {{one, two, two + Zeros(1)},
            "string-zeros " + german + "2\nstrings-differ-in-tail " + german + "2\n"},
           {{one, two, two + "old"},
            "string-tail " + german + "2\nstrings-differ-in-tail " + german + "2\n"},
           {{"one", two, two},
            "string-unterminated " + german + "0\nstrings-differ-in-tail " + german + "0\n"}}) {
    MakeLanguage("GERMAN.DAT", strings);
    EXPECT_EQ(Found(named), expected);
  }
  MakeFile(Path("GERMAN.DAT"), Word(2050) + Zeros(10));
  EXPECT_EQ(Found(named), "language-unreadable /Languages/GERMAN\n");
}

TEST_F(ScriptCheckTest, TablesOfStringsComeBackWithTheirControlBytes) {
  const std::vector<std::string> strings = {
      std::string("a,\"b\"\0", 6), std::string("line\nend\r\n\0", 11), std::string("\x01\x81\0", 3),
      std::string("\xE4\0\0", 3), std::string("last\0old", 8)};
  MakeLanguage("ENGLISH.DAT", strings);
  MakeLanguage("US.DAT", {std::string("first\0", 6)});
  const ScriptValue value = WithLanguages();
  const std::string table = StringTable(value);
  EXPECT_EQ(table,
            "\xEF\xBB\xBFNumber,Group,ENGLISH,US\r\n0,1,\"a,\"\"b\"\"\",first\r\n"
            "1,1,\"line\nend\\x0D\n\",\r\n2,1,\\x01\\x81,\r\n3,1,\u00E4\\x00,\r\n"
            "4,1,last\\x00old\\x--,\r\n");
  EXPECT_EQ(Taken(value, table.substr(3)), "");
  ScriptValue grouped = value;
  LanguageSlot& slot = grouped.languages[static_cast<int>(Language::ENGLISH)];
  slot.Count1 = 2;
  slot.Count2 = 1;
  slot.Count3 = 2;
  for (const char* row : {"\r\n0,1,", "\r\n1,1,", "\r\n2,2,", "\r\n3,3,", "\r\n4,3,"}) {
    EXPECT_NE(StringTable(grouped).find(row), std::string::npos) << row;
  }
  std::string changed = table.substr(3);
  changed.replace(changed.find("\\x01"), 4, "\u20ac");
  Findings findings;
  const std::vector<NewFile> files = TakeTable(value, changed, findings);
  ASSERT_EQ(files.size(), 1U);
  EXPECT_EQ(files[0].path, "ENGLISH.DAT");
  std::string expected = Bytes(Path("ENGLISH.DAT"));
  expected.replace(expected.find('\x01' ^ '\x5C'), 1, 1, static_cast<char>(0x80 ^ 0x5C));
  EXPECT_EQ(files[0].bytes, expected);
}

TEST_F(ScriptCheckTest, TablesAreRefusedWithEveryCellThatCanNotBeStored) {
  MakeLanguage("ENGLISH.DAT", {std::string("A\0", 2), std::string("B\0", 2)});
  MakeLanguage("US.DAT", {std::string("C\0", 2)});
  const ScriptValue value = WithLanguages();
  const std::string head = "Number,Group,ENGLISH,US\r\n";
  using Case = std::tuple<std::string, std::string>;
  for (const auto& [table, expected] : std::initializer_list<Case>{
           {head + "1,1,B,\n0,1,A,C\n\n,,,\n", ""},
           {head + "0,1,A,C" + std::string(199992, ','),
            "wrong-row row 2\nnumber-missing \n"
            "number-missing \n"},
           {head + "0,1,A,C" + std::string(199993, ','), "no-table \n"},
           {head + "0,1,\"A\",c\n1,1,B,", "US.DAT\n"},
           {"Number,Group,US\n0,1,C\n1,1,\n", ""},
           {head + "0,1,A,C\n", "number-missing \n"},
           {head + "0,1,A,C\n0,1,A,C\n2,1,A,C\n1,1,B,", "number-twice row 3\nwrong-number row 4\n"},
           {head + "0,1,\u0416,\\\n1,2,B,D\n",
            "code-page row 2, ENGLISH\nmask-character row 2, US\nwrong-group row 3\nno-such-string "
            "row 3, US\n"},
           {head + "0,1,A\n1,1,B,\n", "wrong-row row 2\nnumber-missing \n"},
           {head + "0,1,\"A,C\n", "no-table \n"},
           {head + "0,1,\"A\"x,C\n", "no-table \n"},
           {"Number;Group;US\n", "no-table row 1\n"},
           {"Number,Group,DUTCH,GERMAN,US,US\n",
            "unknown-language row 1\nunknown-language row 1\nlanguage-twice row 1\n"},
           {head + "0,1," + std::string(32764, 'x') + ",C\n1,1,yy,\n",
            "over-limit row 3, ENGLISH\n"},
           {head + "0,1," + std::string(32764, 'x') + ",C\n1,1,y,\n", "ENGLISH.DAT\n"},
           {head + "0,1," + std::string(32768, 'x') + ",C\n1,1,y,\n",
            "over-limit row 2, ENGLISH\n"},
           {"", "no-table \n"}}) {
    EXPECT_EQ(Taken(value, table), expected) << table.substr(0, 80);
  }
}

}  // namespace
}  // namespace quillmark
