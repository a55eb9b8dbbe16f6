// The program's own folder: where it is, what is copied there, and what never is.

#include "ui/own_folder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <filesystem>
#include <map>
#include <string>

#include "support/text.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

void Put(const fs::path& path, const std::string& content) {
  fs::create_directories(path.parent_path());
  MakeFile(path.string(), content);
}

class OwnFolderTest : public testing::Test {
 protected:
  OwnFolderTest() {
    fs::create_directory(root_ / "bin");
    Install("1");
  }

  /// Installs the tables as a version of the program has them.
  void Install(const std::string& version) const {
    for (const char* name : {"ENGLISH.BIN", "GERMAN.BIN", "FRENCH.BIN", "interface.h"}) {
      Put(root_ / "share" / name, name + version);
    }
    Put(root_ / "share/samples/tr4/SCRIPT.DAT", "script");
  }

  OwnFolder Start(const std::string& language = "GERMAN.BIN") const {
    return PrepareOwnFolder({.program = Path("bin"),
                             .installed = Path("share"),
                             .user = Path("home/data/quillmark"),
                             .language = QString::fromStdString(language)});
  }

  QString Path(const std::string& name) const {
    return QString::fromStdString((root_ / name).string());
  }

  /// Name and content of what the user has, but for the program's record.
  std::map<std::string, std::string> UsersFiles() const {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(user_)) {
      if (!entry.is_regular_file() || entry.path().filename() == "installed.txt") continue;
      files[fs::relative(entry.path(), user_).generic_string()] = Bytes(entry.path().string());
    }
    return files;
  }

  QTemporaryDir folder_;
  fs::path root_ = folder_.path().toStdString();
  fs::path user_ = root_ / "home/data/quillmark";
};

TEST_F(OwnFolderTest, IsTheExecutablesWhereATableLiesThereAndNothingIsCopied) {
  for (const char* name : {"language.bin", "interface.h", "Interface.H"}) {
    Put(root_ / "bin" / name, "own");
    const OwnFolder own = Start();
    EXPECT_EQ(own.path, Path("bin")) << name;
    EXPECT_EQ(own.trouble, "");
    EXPECT_EQ(Bytes((root_ / "bin" / name).string()), "own");
    fs::remove(root_ / "bin" / name);
    EXPECT_TRUE(fs::is_empty(root_ / "bin"));
    EXPECT_FALSE(fs::exists(root_ / "home"));
  }
}

TEST_F(OwnFolderTest, IsFilledForTheUserAtTheFirstStart) {
  const std::map<std::string, std::string> german = {
      {"ENGLISH.BIN", "ENGLISH.BIN1"}, {"FRENCH.BIN", "FRENCH.BIN1"},
      {"GERMAN.BIN", "GERMAN.BIN1"},   {"interface.h", "interface.h1"},
      {"language.bin", "GERMAN.BIN1"}, {"samples/tr4/SCRIPT.DAT", "script"}};
  const OwnFolder own = Start();
  EXPECT_EQ(own.path, Path("home/data/quillmark"));
  EXPECT_EQ(own.trouble, "");
  EXPECT_EQ(UsersFiles(), german);
  fs::remove_all(user_);
  Start("DANISH.BIN");
  EXPECT_EQ(UsersFiles()["language.bin"], "ENGLISH.BIN1");
}

TEST_F(OwnFolderTest, FollowsALaterVersionButForWhatTheUserChanged) {
  Start();
  fs::remove_all(user_ / "samples");
  fs::remove(user_ / "GERMAN.BIN");
  Put(user_ / "language.bin", "FRENCH.BIN1");
  Put(user_ / "ENGLISH.BIN", "my own words");
  Put(user_ / "settings.dat", "settings");
  Install("2");
  const std::map<std::string, std::string> followed = {
      {"ENGLISH.BIN", "my own words"}, {"FRENCH.BIN", "FRENCH.BIN2"},
      {"GERMAN.BIN", "GERMAN.BIN2"},   {"interface.h", "interface.h2"},
      {"language.bin", "FRENCH.BIN2"}, {"settings.dat", "settings"}};
  Start();
  EXPECT_EQ(UsersFiles(), followed);

  Put(user_ / "language.bin", "my own words");
  Install("3");
  Start();
  EXPECT_EQ(UsersFiles()["language.bin"], "my own words");
  EXPECT_EQ(UsersFiles()["interface.h"], "interface.h3");
}

TEST_F(OwnFolderTest, TakesFilesThatWereThereBeforeForTheUsersOwn) {
  Put(user_ / "LANGUAGE.BIN", "older");
  Put(user_ / "interface.h", "older");
  Start();
  EXPECT_EQ(UsersFiles()["LANGUAGE.BIN"], "older");
  EXPECT_EQ(UsersFiles()["interface.h"], "older");
  EXPECT_EQ(UsersFiles().count("language.bin"), 0U);
}

TEST_F(OwnFolderTest, IsMissedInOneText) {
  Put(root_ / "home/data", "a file where a folder should be");
  const OwnFolder own = Start();
  for (const char* folder : {"bin", "home/data/quillmark"}) {
    EXPECT_TRUE(own.trouble.contains(QDir::toNativeSeparators(Path(folder))))
        << own.trouble.toStdString();
  }
}

}  // namespace
}  // namespace quillmark
