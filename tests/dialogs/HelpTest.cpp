#include <gmock/gmock.h>

#include "DialogFixture.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;

class Help : public DialogFixture {
 protected:
  std::string launched() {
    log.clear();
    inside(control).panel.CmdHelp.press();
    return log.only({"ShellExecuteA"}).at(0);
  }
  std::vector<std::string> messagesFor(std::int32_t result) {
    platform.programs.result = result;
    log.clear();
    inside(control).panel.CmdHelp.press();
    return log.only({"Show"});
  }
};

TEST_F(Help, OpensTheFileOfTheLanguageBesideTheControlsOwnFile) {
  inside(control).AppPathString = u"/app";
  moduleWide().HelpFileName = u"Help_049.chm";
  EXPECT_EQ(launched(), "ShellExecuteA 0 Open /opt/tessara\\Help_049.chm () /opt/tessara 1");
}

TEST_F(Help, AFolderThatEndsWithASeparatorGetsNoSecondOne) {
  platform.programFolder = u"C:\\";
  moduleWide().HelpFileName = u"Help_001.chm";
  EXPECT_EQ(launched(), "ShellExecuteA 0 Open C:\\Help_001.chm () C:\\ 1");
}

TEST_F(Help, WithoutALanguageItIsTheEnglishFile) {
  moduleWide().HelpFileName.clear();
  EXPECT_EQ(launched(), "ShellExecuteA 0 Open /opt/tessara\\Help_001.chm () /opt/tessara 1");
}

TEST_F(Help, BelongsToTheWindowOfTheControl) {
  inside(control).hWnd = 77;
  EXPECT_TRUE(launched().starts_with("ShellExecuteA 77 Open "));
}

TEST_F(Help, FollowsTheLanguageOnlyFromTheNextStart) {
  moduleWide().HelpFileName = u"Help_001.chm";
  control.put_Language(1);
  EXPECT_EQ(launched(), "ShellExecuteA 0 Open /opt/tessara\\Help_001.chm () /opt/tessara 1");
}

TEST_F(Help, ShowsTheFailuresThatHaveAMessage) {
  const std::vector<std::pair<std::int32_t, std::string>> messages{{2, "File Not Found!"},
                                                                   {3, "Path Not Found!"},
                                                                   {5, "Access denied!"},
                                                                   {11, "Bad File Format!"},
                                                                   {0, "DDE Error!"}};
  for (const auto& [result, text] : messages) {
    EXPECT_THAT(messagesFor(result), ElementsAre("Show 16 Error Help File: " + text)) << result;
  }
}

TEST_F(Help, EveryOtherResultIsSilent) {
  for (std::int32_t result = -2; result <= 40; ++result) {
    if (result != 0 && result != 2 && result != 3 && result != 5 && result != 11) {
      EXPECT_THAT(messagesFor(result), ElementsAre()) << result;
    }
  }
  EXPECT_THAT(messagesFor(32767), ElementsAre());
}

TEST_F(Help, AResultBeyond16BitsIsAnOverflow) {
  platform.programs.result = 32768;
  EXPECT_EQ(errorNumberOf([this] { inside(control).panel.CmdHelp.press(); }), 6);
}

TEST_F(Help, StoresTheAnswerToTheMessage) {
  platform.messageAnswer = 9;
  messagesFor(2);
  EXPECT_EQ(inside(control).lMsgResult, 9);
}

TEST_F(Help, DoesNotChangeThePanel) {
  platform.programs.result = 2;
  log.clear();
  inside(control).panel.CmdHelp.press();
  EXPECT_EQ(log.entries().size(), 2U);
}

}  // namespace
}  // namespace tessara::testing
