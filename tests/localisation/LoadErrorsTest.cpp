#include <gtest/gtest.h>

#include "localisation/ErrorOf.h"
#include "localisation/LanguageBytes.h"
#include "localisation/LanguageFolder.h"

namespace tessara {
namespace {

using testing::errorNumberOf;
using testing::errorOf;
using testing::languageBytes;
using testing::LanguageFolder;

/// Loads the German file, whose content each test defines.
class LoadErrors : public LanguageFolder {
 protected:
  bool loadText(std::u16string_view text) { return loadBytes(languageBytes(text)); }
  bool loadBytes(const std::string& bytes) {
    write("MERIDEX_CONF.dlg", bytes);
    return load(1);
  }
  std::optional<ErrorNumber> errorOfText(std::u16string_view text) {
    return errorNumberOf([&] { (void)loadText(text); });
  }
  std::optional<ErrorNumber> errorOfBytes(const std::string& bytes) {
    return errorNumberOf([&] { (void)loadBytes(bytes); });
  }
};

std::u16string messages(int count, int lines) {
  std::u16string text = u"[Messages]\r\n" + decimalText(count) + u"\r\n";
  for (int i = 0; i < lines; ++i) {
    text += u"s" + decimalText(i) + u"\r\n";
  }
  return text;
}

TEST_F(LoadErrors, MissingFileIsAFailureThatKeepsTheChoice) {
  state.AppTitle = u"before";
  EXPECT_FALSE(load(1));
  EXPECT_TRUE(state.LanguageFileError);
  EXPECT_EQ(state.HelpFileName, u"Help_049.chm");
  EXPECT_EQ(state.LanguageFileExtension, u"dlg");
  EXPECT_EQ(state.AppTitle, u"before");
}

TEST_F(LoadErrors, FolderInPlaceOfTheFileIsAMissingFile) {
  std::filesystem::create_directory(folder() / "MERIDEX_CONF.dlg");
  EXPECT_FALSE(load(1));
}

TEST_F(LoadErrors, AreClearedByTheNextSuccessfulLoad) {
  EXPECT_FALSE(load(1));
  EXPECT_TRUE(loadText(u"[Title]\r\n1\r\ntt\r\n"));
  EXPECT_FALSE(state.LanguageFileError);
}

TEST_F(LoadErrors, TitleMustHaveCountOne) {
  for (const auto* count : {u"0", u"2", u"-1"}) {
    EXPECT_FALSE(loadText(u"[Title]\r\n" + std::u16string(count) + u"\r\ntt\r\n"));
    EXPECT_TRUE(state.LanguageFileError);
    EXPECT_EQ(state.AppTitle, u"tt");
  }
}

TEST_F(LoadErrors, TitleIsOneLineWhateverItsCount) {
  EXPECT_FALSE(loadText(u"[Title]\r\n2\r\ntt\r\n[Buttons]\r\n1\r\nb0\r\n"));
  EXPECT_EQ(state.TextButtons[0], u"b0");
}

TEST_F(LoadErrors, NegativeCountFailsAndTheRestIsStillRead) {
  EXPECT_FALSE(loadText(u"[Messages]\r\n-1\r\n[Buttons]\r\n1\r\nb0\r\n"));
  EXPECT_TRUE(state.LanguageFileError);
  EXPECT_EQ(state.TextButtons[0], u"b0");
}

TEST_F(LoadErrors, FailureIsNotUndoneByAValidSectionAfterIt) {
  EXPECT_FALSE(loadText(u"[Buttons]\r\n-5\r\n[Buttons]\r\n1\r\nb0\r\n"));
  EXPECT_TRUE(state.LanguageFileError);
}

TEST_F(LoadErrors, DefaultsAfterAFailureKeepWhatTheFileStoredInSpareSlots) {
  EXPECT_FALSE(loadText(u"[Title]\r\n2\r\ntt\r\n" + messages(36, 36)));
  LoadDefaultTexts(state);
  EXPECT_EQ(state.TextStatus[34], u"Fehler Monitoring System");
  EXPECT_EQ(state.TextStatus[35], u"s35");
}

TEST_F(LoadErrors, TextPastTheTableIsASubscriptErrorAndTheTableIsFull) {
  EXPECT_EQ(errorOfText(messages(42, 42)), ErrorNumber::Subscript);
  EXPECT_EQ(state.TextStatus[40], u"s40");
}

TEST_F(LoadErrors, EverySectionRespectsTheSizeOfItsTable) {
  EXPECT_EQ(errorOfText(u"[Buttons]\r\n5\r\nb0\r\nb1\r\nb2\r\nb3\r\nb4\r\n"),
            ErrorNumber::Subscript);
  for (const auto* header : {u"[MainFrame]", u"[ModulInfo]"}) {
    std::u16string text = std::u16string(header) + u"\r\n32\r\n";
    for (int i = 0; i < 32; ++i) {
      text += u"text\r\n";
    }
    EXPECT_EQ(errorOfText(text), ErrorNumber::Subscript);
  }
}

TEST_F(LoadErrors, CountPastTheTableIsAReadPastTheEndIfTheTextsEndBefore) {
  EXPECT_EQ(errorOfText(messages(42, 41)), ErrorNumber::InputPastEnd);
}

TEST_F(LoadErrors, CountThatIsNotANumberIsAConversionError) {
  for (const auto* count : {u"two", u"1;", u"1 2", u"[Messages]"}) {
    EXPECT_EQ(errorOfText(u"[Buttons]\r\n" + std::u16string(count) + u"\r\nb0\r\n"),
              ErrorNumber::TypeMismatch);
  }
}

TEST_F(LoadErrors, BlankLineInPlaceOfTheCountIsAConversionError) {
  EXPECT_EQ(errorOfText(u"[Buttons]\r\n\r\n1\r\nb0\r\n"), ErrorNumber::TypeMismatch);
}

TEST_F(LoadErrors, CountAboveSixteenBitsIsAnOverflow) {
  EXPECT_EQ(errorOfText(u"[Buttons]\r\n32768\r\nb0\r\n"), ErrorNumber::Overflow);
  EXPECT_EQ(errorOfText(u"[Buttons]\r\n-32769\r\nb0\r\n"), ErrorNumber::Overflow);
}

TEST_F(LoadErrors, FileThatEndsInsideASectionIsAReadPastTheEnd) {
  EXPECT_EQ(errorOfText(messages(3, 2)), ErrorNumber::InputPastEnd);
  EXPECT_EQ(state.TextStatus[1], u"s1");
}

TEST_F(LoadErrors, FileThatEndsAfterAHeaderIsAReadPastTheEnd) {
  EXPECT_EQ(errorOfText(u"[Messages]\r\n"), ErrorNumber::InputPastEnd);
  EXPECT_EQ(errorOfText(u"[Messages]"), ErrorNumber::InputPastEnd);
}

TEST_F(LoadErrors, TitleAfterTheEndIsAReadPastTheEnd) {
  EXPECT_EQ(errorOfText(u"[Title]\r\n1\r\n"), ErrorNumber::InputPastEnd);
}

TEST_F(LoadErrors, LastLineOfOneCharacterIsAReadPastTheEnd) {
  EXPECT_EQ(errorOfText(u"[Title]\r\n1\r\nt"), ErrorNumber::InputPastEnd);
}

TEST_F(LoadErrors, LastCountOfOneDigitIsAReadPastTheEnd) {
  EXPECT_EQ(errorOfText(u"[Messages]\r\n0"), ErrorNumber::InputPastEnd);
}

TEST_F(LoadErrors, FileOfTwoBytesOrLessIsAReadPastTheEnd) {
  for (const std::string bytes : {"", "\xFF", "\xFF\xFE"}) {
    EXPECT_EQ(errorOfBytes(bytes), ErrorNumber::InputPastEnd) << bytes.size();
  }
}

TEST_F(LoadErrors, FileThatEndsInItsByteOrderMarkKeepsTheEarlierFailure) {
  EXPECT_FALSE(load(1));
  EXPECT_EQ(errorOfBytes("\xFF"), ErrorNumber::InputPastEnd);
  EXPECT_TRUE(state.LanguageFileError);
}

TEST_F(LoadErrors, FileThatEndsAfterItsByteOrderMarkClearsTheEarlierFailure) {
  EXPECT_FALSE(load(1));
  EXPECT_EQ(errorOfBytes("\xFF\xFE"), ErrorNumber::InputPastEnd);
  EXPECT_FALSE(state.LanguageFileError);
}

TEST_F(LoadErrors, OddByteAtTheEndIsAReadPastTheEnd) {
  EXPECT_EQ(errorOfBytes(languageBytes(u"[Title]\r\n1\r\ntt\r\n") + 'x'),
            ErrorNumber::InputPastEnd);
  EXPECT_EQ(state.AppTitle, u"tt");
}

TEST_F(LoadErrors, OddByteInsideALineIsAReadPastTheEnd) {
  EXPECT_EQ(errorOfBytes(languageBytes(u"[Title]\r\n1\r\ntt") + 'x'), ErrorNumber::InputPastEnd);
  EXPECT_EQ(state.AppTitle, u"");
}

TEST_F(LoadErrors, MessageNamesFileSectionAndCause) {
  const auto error = errorOf([&] { (void)loadText(u"[Buttons]\r\ntwo\r\nb0\r\n"); });
  ASSERT_TRUE(error);
  const std::string message = error->what();
  EXPECT_NE(message.find("MERIDEX_CONF.dlg"), std::string::npos);
  EXPECT_NE(message.find("[Buttons]"), std::string::npos);
  EXPECT_NE(message.find("\"two\" is not a number"), std::string::npos);
}

TEST_F(LoadErrors, CountryCodeThatIsNotANumberEndsTheLoadBeforeAnythingIsChosen) {
  testing::ScriptedLocale::standIn(locale, u"DE");
  EXPECT_EQ(errorNumberOf([&] { (void)load(0); }), ErrorNumber::TypeMismatch);
  EXPECT_EQ(state.HelpFileName, u"");
}

/// Reports that every file exists.
class CredulousFileSystem : public testing::DiskFileSystem {
 public:
  [[nodiscard]] bool FileExists(const std::u16string& /*path*/) const override { return true; }
};

TEST_F(LoadErrors, FileThatCannotBeOpenedIsAnAccessErrorThatNamesIt) {
  const auto error = errorOf([&] {
    (void)LoadLanguageFile(fromUtf8(folder().string()), 1, CredulousFileSystem(), locale, state);
  });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), ErrorNumber::FileAccess);
  EXPECT_NE(std::string(error->what()).find("MERIDEX_CONF.dlg"), std::string::npos);
}

TEST_F(LoadErrors, FileThatCannotBeReadIsAnAccessError) {
  std::filesystem::create_directory(folder() / "MERIDEX_CONF.dlg");
  EXPECT_EQ(errorNumberOf([&] {
              (void)LoadLanguageFile(fromUtf8(folder().string()), 1, CredulousFileSystem(), locale,
                                     state);
            }),
            ErrorNumber::FileAccess);
}

}  // namespace
}  // namespace tessara
