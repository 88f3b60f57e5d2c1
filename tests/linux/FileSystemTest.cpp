#include <sys/stat.h>

#include "SettingsFolder.h"
#include "base/Text.h"
#include "linux/LinuxFileSystem.h"

namespace tessara::testing {
namespace {

class FileSystemTest : public SettingsFolder {
 protected:
  [[nodiscard]] std::u16string in(std::u16string_view name) const {
    return fromUtf8(folder().string()) + std::u16string(name);
  }
  LinuxFileSystem files;
};

TEST_F(FileSystemTest, KnowsAFileFromAFolderAndFromNothing) {
  put(folder() / "pictures" / "logo ä.png", "x");
  EXPECT_TRUE(files.FileExists(in(u"/pictures/logo ä.png")));
  EXPECT_FALSE(files.FileExists(in(u"/pictures")));
  EXPECT_FALSE(files.FileExists(in(u"/pictures/other.png")));
  EXPECT_FALSE(files.FileExists(in(u"/pictures/logo ä.png/under it")));
  EXPECT_FALSE(files.FileExists(u""));
}

TEST_F(FileSystemTest, TakesNoPipeAndNoDeviceForAFile) {
  ASSERT_EQ(::mkfifo((folder() / "pipe.png").c_str(), 0600), 0);
  EXPECT_FALSE(files.FileExists(in(u"/pipe.png")));
  EXPECT_FALSE(files.FileExists(u"/dev/zero"));
}

TEST_F(FileSystemTest, SeesAFileBehindALink) {
  put(folder() / "logo.png", "x");
  std::filesystem::create_symlink("logo.png", folder() / "link.png");
  EXPECT_TRUE(files.FileExists(in(u"/link.png")));
}

TEST_F(FileSystemTest, TakesABackslashForASeparator) {
  put(folder() / "pictures" / "logo.png", "x");
  EXPECT_TRUE(files.FileExists(in(u"\\pictures\\logo.png")));
  EXPECT_EQ(pathOfHost(u"a\\b/c"), "a/b/c");
}

TEST_F(FileSystemTest, DoesNotSeeALinkThatLeadsNowhere) {
  std::filesystem::create_symlink("nowhere", folder() / "link");
  EXPECT_FALSE(files.FileExists(in(u"/link")));
}

TEST_F(FileSystemTest, SeesNoFileInAPathWithAZeroCharacter) {
  put(folder() / "logo.png", "x");
  EXPECT_FALSE(files.FileExists(in(std::u16string_view(u"/logo.png\0", 10))));
  EXPECT_FALSE(files.FileExists(in(std::u16string_view(u"/logo.png\0.svg", 14))));
}

TEST_F(FileSystemTest, JoinsFolderAndNameWithOneSeparator) {
  EXPECT_EQ(files.BuildPath(u"/opt/conf", u"logo.png"), u"/opt/conf/logo.png");
  EXPECT_EQ(files.BuildPath(u"/opt/conf/", u"logo.png"), u"/opt/conf/logo.png");
  EXPECT_EQ(files.BuildPath(u"/opt/conf\\", u"logo.png"), u"/opt/conf/logo.png");
  EXPECT_EQ(files.BuildPath(u"/opt/conf", u"\\logo.png"), u"/opt/conf/logo.png");
  EXPECT_EQ(files.BuildPath(u"", u"logo.png"), u"logo.png");
}

TEST_F(FileSystemTest, FindsTheProgramsOwnFolderFromAnywhere) {
  const auto expected = std::filesystem::canonical("/proc/self/exe").parent_path();
  std::filesystem::current_path(folder());
  EXPECT_EQ(programFolder(), expected);
}

}  // namespace
}  // namespace tessara::testing
