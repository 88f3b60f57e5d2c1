#include <future>
#include <system_error>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "SettingsFolder.h"
#include "linux/LockedFile.h"

namespace tessara::testing {
namespace {

namespace fs = std::filesystem;

class LockedFileTest : public SettingsFolder {
 protected:
  fs::path file = folder() / "some" / "file.ini";
};

TEST_F(LockedFileTest, MakesTheFileAndItsFolder) {
  LockedFile(file).replace("new");
  EXPECT_EQ(bytesOf(file), "new");
}

TEST_F(LockedFileTest, KeepsTheMode) {
  put(file, "old");
  for (const mode_t mode : {0600U, 0664U, 0777U}) {
    ASSERT_EQ(::chmod(file.c_str(), mode), 0);
    LockedFile(file).replace("new");
    EXPECT_EQ(static_cast<mode_t>(fs::status(file).permissions()), mode);
  }
}

TEST_F(LockedFileTest, FollowsSymbolicLinks) {
  const fs::path target = folder() / "elsewhere" / "real.ini";
  put(target, "old");
  fs::create_directories(file.parent_path());
  fs::create_symlink("second.ini", file);
  fs::create_symlink(target, file.parent_path() / "second.ini");
  LockedFile(file).replace("new");
  EXPECT_EQ(bytesOf(target), "new");
  EXPECT_TRUE(fs::is_symlink(file));
  fs::remove(target);
  LockedFile(file).replace("again");
  EXPECT_EQ(bytesOf(target), "again");
}

TEST_F(LockedFileTest, RefusesLinksInACircle) {
  fs::create_directories(file.parent_path());
  fs::create_symlink(file, file);
  EXPECT_THROW(LockedFile{file}, std::system_error);
}

TEST_F(LockedFileTest, LeavesNothingBesideTheFileButItsLock) {
  put(file.parent_path() / ".file.ini.new", "left by a process that was killed");
  LockedFile(file).replace("new");
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(file.parent_path())) {
    names.insert(entry.path().filename().string());
  }
  EXPECT_EQ(names, (std::set<std::string>{".file.ini.lock", "file.ini"}));
}

TEST_F(LockedFileTest, LetsOthersWaitAsLongAsItLives) {
  auto first = std::make_unique<LockedFile>(file);
  auto second = std::async(std::launch::async, [&] {
    LockedFile own(file);
    const std::string found = bytesOf(file);
    own.replace("second");
    return found;
  });
  first->replace("first");
  EXPECT_EQ(bytesOf(file), "first");
  first.reset();
  EXPECT_EQ(second.get(), "first");
  EXPECT_EQ(bytesOf(file), "second");
}

TEST_F(LockedFileTest, NamesTheErrorOfAFolderThatCannotBeMade) {
  put(folder() / "some", "a file where a folder should be");
  try {
    LockedFile{file};
    ADD_FAILURE();
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code(), std::errc::not_a_directory);
  }
}

}  // namespace
}  // namespace tessara::testing
