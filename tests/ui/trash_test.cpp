// The desktop's trash: what lies there afterwards, and that nothing is lost where there is none.

#include "ui/trash.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "support/text.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

class TrashTest : public testing::Test {
 protected:
  TrashTest() { setenv("XDG_DATA_HOME", data_.c_str(), 1); }
  ~TrashTest() override { unsetenv("XDG_DATA_HOME"); }

  bool Discard(const std::string& content) const {
    MakeFile(old_, content);
    return MoveToTrash(old_);
  }

  QTemporaryDir folder_;
  fs::path root_ = folder_.path().toStdString();
  fs::path data_ = root_ / "not there yet";
  fs::path old_ = root_ / "a % b.old";
};

TEST_F(TrashTest, KeepsFilesOfOneNameApartWithTheirRecords) {
  EXPECT_TRUE(Discard("first"));
  const fs::path trash = data_ / "Trash";
  MakeFile(trash / "files/a % b.old.2", "without a record");
  EXPECT_TRUE(Discard("second"));
  EXPECT_FALSE(fs::exists(old_));
  EXPECT_EQ(Bytes(trash / "files/a % b.old"), "first");
  EXPECT_EQ(Bytes(trash / "files/a % b.old.3"), "second");
  for (const char* name : {"info/a % b.old.trashinfo", "info/a % b.old.3.trashinfo"}) {
    const std::string record = Bytes(trash / name);
    const std::string start =
        "[Trash Info]\nPath=" + root_.string() + "/a%20%25%20b.old\nDeletionDate=20";
    EXPECT_EQ(record.substr(0, start.size()), start);
    EXPECT_EQ(record.size(), start.size() + std::string("04-11-05T18:30:00\n").size());
  }
  EXPECT_EQ(fs::status(trash).permissions(), fs::perms::owner_all);
  for (int i = 4; i <= 110; ++i) MakeFile(trash / ("files/a % b.old." + std::to_string(i)), "");
  EXPECT_TRUE(Discard("one more")) << "there is no end of names";
}

TEST_F(TrashTest, LeavesTheFileWhereTheTrashTakesNone) {
  for (const char* part : {"Trash", "Trash/files", "Trash/info"}) {
    fs::remove_all(data_);
    fs::create_directories((data_ / part).parent_path());
    MakeFile(data_ / part, "in the way");
    EXPECT_FALSE(Discard("old")) << part;
    EXPECT_EQ(Bytes(old_), "old");
  }
}

TEST_F(TrashTest, LeavesAFileWhoseRecordCannotBeMade) {
  old_ = root_ / std::string(250, 'n');  // with the ending of a record it is too long
  EXPECT_FALSE(Discard("old"));
  EXPECT_EQ(Bytes(old_), "old");
  EXPECT_TRUE(fs::is_empty(data_ / "Trash/info"));
}

}  // namespace
}  // namespace quillmark
