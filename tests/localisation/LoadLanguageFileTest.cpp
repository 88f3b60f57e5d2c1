#include <gtest/gtest.h>

#include "localisation/LanguageBytes.h"
#include "localisation/LanguageFolder.h"

namespace tessara {
namespace {

using testing::languageBytes;
using testing::LanguageFolder;

/// Loads the German file, whose content each test defines.
class LoadLanguageFile : public LanguageFolder {
 protected:
  bool loadText(std::u16string_view text) { return loadBytes(languageBytes(text)); }
  bool loadBytes(const std::string& bytes) {
    write("MERIDEX_CONF.dlg", bytes);
    return load(1);
  }
};

TEST_F(LoadLanguageFile, FillsEachTableFromItsSection) {
  EXPECT_TRUE(
      loadText(u"[Title]\r\n1\r\nt\r\n[MainFrame]\r\n2\r\nm0\r\nm1\r\n[ModulInfo]\r\n1\r\ni0\r\n"
               u"[Buttons]\r\n1\r\nb0\r\n[Messages]\r\n3\r\ns0\r\ns1\r\ns2\r\n"));
  EXPECT_FALSE(state.LanguageFileError);
  EXPECT_EQ(state.AppTitle, u"t");
  EXPECT_EQ(state.TextMainFrame[0], u"m0");
  EXPECT_EQ(state.TextMainFrame[1], u"m1");
  EXPECT_EQ(state.TextMainFrame[2], u"");
  EXPECT_EQ(state.TextModulInfo[0], u"i0");
  EXPECT_EQ(state.TextButtons[0], u"b0");
  EXPECT_EQ(state.TextStatus[0], u"s0");
  EXPECT_EQ(state.TextStatus[2], u"s2");
}

TEST_F(LoadLanguageFile, AcceptsSectionsInAnyOrder) {
  EXPECT_TRUE(loadText(u"[Messages]\r\n1\r\ns0\r\n[Title]\r\n1\r\ntt\r\n"));
  EXPECT_EQ(state.TextStatus[0], u"s0");
  EXPECT_EQ(state.AppTitle, u"tt");
}

TEST_F(LoadLanguageFile, KeepsTheTableOfAnOmittedSection) {
  state.TextButtons[0] = u"before";
  EXPECT_TRUE(loadText(u"[Title]\r\n1\r\ntt\r\n"));
  EXPECT_EQ(state.TextButtons[0], u"before");
  EXPECT_EQ(state.TextStatus[0], u"");
}

TEST_F(LoadLanguageFile, OverwritesASectionWithALaterOneOfTheSameName) {
  EXPECT_TRUE(loadText(u"[Messages]\r\n2\r\na0\r\na1\r\n[Messages]\r\n1\r\nb0\r\n"));
  EXPECT_EQ(state.TextStatus[0], u"b0");
  EXPECT_EQ(state.TextStatus[1], u"a1");
}

TEST_F(LoadLanguageFile, IgnoresLinesBetweenSections) {
  EXPECT_TRUE(
      loadText(u"; made by hand\r\n[Title]\r\n1\r\ntt\r\nleft over\r\n[Buttons]\r\n1\r\nb0\r\n"));
  EXPECT_EQ(state.AppTitle, u"tt");
  EXPECT_EQ(state.TextButtons[0], u"b0");
}

TEST_F(LoadLanguageFile, RecognisesOnlyExactHeaders) {
  for (const auto* header :
       {u"[title]", u"[TITLE]", u" [Title]", u"[Title] ", u"Title", u"[Title"}) {
    EXPECT_TRUE(loadText(std::u16string(header) + u"\r\n1\r\ntt\r\n"));
    EXPECT_EQ(state.AppTitle, u"");
  }
}

TEST_F(LoadLanguageFile, MissesAHeaderAfterABlankLineAndItsWholeSection) {
  EXPECT_TRUE(loadText(
      u"[Title]\r\n1\r\ntt\r\n\r\n[ModulInfo]\r\n2\r\ni0\r\ni1\r\n[Buttons]\r\n1\r\nb0\r\n"));
  EXPECT_EQ(state.TextModulInfo[0], u"");
  EXPECT_EQ(state.TextModulInfo[1], u"");
  EXPECT_EQ(state.TextButtons[0], u"b0");
}

TEST_F(LoadLanguageFile, ReadsOneLineTooManyAfterABlankLineInASection) {
  EXPECT_TRUE(loadText(
      u"[ModulInfo]\r\n3\r\ni0\r\n\r\ni1\r\n[Buttons]\r\n1\r\nb0\r\n[Title]\r\n1\r\ntt\r\n"));
  EXPECT_EQ(state.TextModulInfo[1], u"\r\ni1");
  EXPECT_EQ(state.TextModulInfo[2], u"[Buttons]");
  EXPECT_EQ(state.TextButtons[0], u"");
  EXPECT_EQ(state.AppTitle, u"tt");
}

TEST_F(LoadLanguageFile, AcceptsALastLineWithoutCrLf) {
  EXPECT_TRUE(loadText(u"[Buttons]\r\n1\r\nAbbrechen"));
  EXPECT_EQ(state.TextButtons[0], u"Abbrechen");
}

TEST_F(LoadLanguageFile, KeepsATextOfOneBlank) {
  EXPECT_TRUE(loadText(u"[Buttons]\r\n1\r\n \r\n"));
  EXPECT_EQ(state.TextButtons[0], u" ");
}

TEST_F(LoadLanguageFile, ReadsNoTextForCountZero) {
  EXPECT_TRUE(loadText(u"[ModulInfo]\r\n0\r\n[Buttons]\r\n1\r\nb0\r\n"));
  EXPECT_EQ(state.TextModulInfo[0], u"");
  EXPECT_EQ(state.TextButtons[0], u"b0");
}

TEST_F(LoadLanguageFile, FillsEverySlotOfATable) {
  std::u16string text = u"[Messages]\r\n41\r\n";
  for (int i = 0; i < 41; ++i) {
    text += u"s" + decimalText(i) + u"\r\n";
  }
  EXPECT_TRUE(loadText(text + u"[Buttons]\r\n4\r\nb0\r\nb1\r\nb2\r\nb3\r\n"));
  EXPECT_EQ(state.TextStatus[40], u"s40");
  EXPECT_EQ(state.TextButtons[3], u"b3");
}

TEST_F(LoadLanguageFile, ReadsACountInTheSystemsNotation) {
  locale.separator = u",";
  EXPECT_TRUE(loadText(u"[Buttons]\r\n1,0\r\nb0\r\n"));
  EXPECT_EQ(state.TextButtons[0], u"b0");
}

TEST_F(LoadLanguageFile, IgnoresTheByteOrderMark) {
  EXPECT_TRUE(loadBytes("xy" + testing::utf16Bytes(u"[Buttons]\r\n1\r\nb0\r\n")));
  EXPECT_EQ(state.TextButtons[0], u"b0");
}

TEST_F(LoadLanguageFile, SucceedsWithEmptyTablesOnAnotherEncoding) {
  EXPECT_TRUE(loadBytes("\xEF\xBB\xBF[Buttons]\r\n1\r\nCancel\r\nThe end\r\n"));
  EXPECT_EQ(state.TextButtons[0], u"");
}

TEST_F(LoadLanguageFile, KeepsTextsOfAllScripts) {
  EXPECT_TRUE(loadText(u"[Buttons]\r\n4\r\nОтмена\r\n取消\r\nキャンセル\r\n😀\r\n"));
  EXPECT_EQ(state.TextButtons[0], u"Отмена");
  EXPECT_EQ(state.TextButtons[1], u"取消");
  EXPECT_EQ(state.TextButtons[2], u"キャンセル");
  EXPECT_EQ(state.TextButtons[3], u"😀");
}

TEST_F(LoadLanguageFile, ReadsAFileLargerThanAnyBuffer) {
  const std::u16string longText(100000, u'x');
  EXPECT_TRUE(loadText(u"[Buttons]\r\n1\r\n" + longText + u"\r\n"));
  EXPECT_EQ(state.TextButtons[0], longText);
}

TEST_F(LoadLanguageFile, FindsAFolderWithANameInAnyScript) {
  const auto inner = folder() / std::u8string(u8"Geräte 模块");
  std::filesystem::create_directory(inner);
  std::ofstream(inner / "MERIDEX_CONF.elg", std::ios::binary)
      << languageBytes(u"[Title]\r\n1\r\ntt\r\n");
  EXPECT_TRUE(
      tessara::LoadLanguageFile(inner.u16string(), 2, testing::DiskFileSystem(), locale, state));
  EXPECT_EQ(state.AppTitle, u"tt");
}

TEST_F(LoadLanguageFile, LoadsTheSameAgain) {
  EXPECT_TRUE(loadText(u"[Title]\r\n1\r\none\r\n"));
  EXPECT_TRUE(loadText(u"[Title]\r\n1\r\ntwo\r\n"));
  EXPECT_EQ(state.AppTitle, u"two");
}

}  // namespace
}  // namespace tessara
