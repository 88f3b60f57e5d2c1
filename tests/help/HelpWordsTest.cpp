#include <filesystem>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "FakeHost.h"
#include "FakePlatform.h"
#include "HelpPages.h"
#include "Inside.h"
#include "base/Text.h"
#include "control/ModulInfoFLII.h"
#include "knowledge/ChannelStatus.h"
#include "knowledge/ModuleStatus.h"

namespace tessara {
namespace {

using testing::FakeHost;
using testing::FakePlatform;
using testing::wordsOfPages;

/// A language that has a help of its own.
struct HelpLanguage {
  const char* name;
  std::int16_t number;
  const char* folder;
};

/// The pieces of a text between separators, blanks around them removed.
std::set<std::u16string> piecesOf(std::u16string text, std::u16string_view separator) {
  std::set<std::u16string> pieces;
  text += separator;
  for (auto end = text.find(separator); end != std::u16string::npos; end = text.find(separator)) {
    const auto first = text.find_first_not_of(u' ');
    if (first < end) {
      pieces.insert(text.substr(first, text.find_last_not_of(u' ', end - 1) - first + 1));
    }
    text.erase(0, end + separator.size());
  }
  return pieces;
}

constexpr std::u16string_view arrow = u"->";
constexpr std::int16_t good = 0x0080;

std::int16_t bit(int place) {
  return static_cast<std::int16_t>(1U << static_cast<unsigned int>(place));
}

/// Every text that a module's or channel's status can be made of, numbers and all.
std::set<std::u16string> statusTexts(const TextTables& texts) {
  std::set<std::u16string> found;
  const auto add = [&](std::set<std::u16string> pieces) { found.merge(pieces); };
  for (int place = 0; place < 16; ++place) {
    add(piecesOf(DecodeModuleErrorBits(bit(place), texts), arrow));
    for (std::int16_t family = 0; family < 64; ++family) {
      add(piecesOf(DecodeModuleStatusBits(bit(place), false, family, texts), arrow));
      add(piecesOf(DecodeChannelStatus(bit(place), good, false, family, texts), arrow));
      add(piecesOf(DecodeChannelStatus(good, bit(place), false, family, texts), arrow));
    }
  }
  add(piecesOf(DecodeModuleErrorBits(0, texts), arrow));
  add(piecesOf(DecodeModuleStatusBits(0, false, 0, texts), arrow));
  add({DecodeModuleStatusBits(0, true, 0, texts)});
  return found;
}

/// The part of a channel's message that the help lists, without the mark of the channel.
std::u16string withoutChannel(std::u16string text) {
  for (const std::u16string_view mark : {u" Chn2", u" Chn-diff."}) {
    if (const auto place = text.find(mark); place != std::u16string::npos) {
      text.erase(place);
    }
  }
  return text;
}

class HelpWords : public ::testing::TestWithParam<HelpLanguage> {
 protected:
  HelpWords()
      : words(wordsOfPages(std::filesystem::path(TESSARA_BIN) / GetParam().folder)),
        control(platform, host) {
    control.UserControl_Initialize();
    control.put_AppPathString(fromUtf8(TESSARA_BIN));
    control.put_Language(GetParam().number);
    control.UserControl_Show();
  }

  void expectWords(std::u16string_view text) const {
    EXPECT_NE(words.find(toUtf8(text)), std::string::npos) << toUtf8(text);
  }

  std::string words;
  FakePlatform platform;
  FakeHost host{platform.log};
  ModulInfoFLII control;
};

TEST_P(HelpWords, CoverEveryCaptionOfThePanel) {
  std::size_t captions = 0;
  for (const Widget* widget : inside(control).panel.widgets()) {
    std::u16string caption = widget->caption();
    if (widget->kind() == WidgetKind::Label && !caption.empty()) {
      expectWords(caption.substr(0, caption.find_last_not_of(u" :") + 1));
      ++captions;
    }
  }
  EXPECT_EQ(captions, 13U);
}

TEST_P(HelpWords, CoverEveryButtonOfThePanel) {
  std::size_t buttons = 0;
  for (const Widget* widget : inside(control).panel.widgets()) {
    if (widget->kind() == WidgetKind::Button) {
      EXPECT_FALSE(widget->state().toolTipText.empty());
      expectWords(widget->state().toolTipText);
      ++buttons;
    }
  }
  EXPECT_EQ(buttons, 9U);
}

TEST_P(HelpWords, CoverEveryTextOfTheStatus) {
  const std::set<std::u16string> texts = statusTexts(moduleWide());
  EXPECT_GT(texts.size(), 60U);
  for (const std::u16string& text : texts) {
    expectWords(withoutChannel(text));
  }
  for (const char16_t* part : {u"USB-Power; ", u" Chn2", u" Chn-diff."}) {
    expectWords(part);
  }
}

TEST_P(HelpWords, CoverEveryTextThatThePanelShowsOfItself) {
  constexpr std::size_t texts = 26;
  for (std::size_t index = 0; index < texts; ++index) {
    expectWords(moduleWide().TextModulInfo[index]);
  }
  for (const std::size_t index : {5U, 16U, 21U, 22U, 23U, 24U, 25U}) {
    expectWords(moduleWide().TextMainFrame[index]);
  }
  expectWords(moduleWide().TextButtons[0]);
  for (const char16_t* message :
       {u"Fehler XML-Datei!", u"Error language file! Set to default!", u"Error Help File",
        u"File Not Found!", u"Path Not Found!", u"Access denied!", u"Bad File Format!",
        u"DDE Error!", u"Offline"}) {
    expectWords(message);
  }
}

INSTANTIATE_TEST_SUITE_P(InEachLanguage, HelpWords,
                         ::testing::Values(HelpLanguage{"German", 1, "Help_049"},
                                           HelpLanguage{"English", 2, "Help_001"}),
                         [](const auto& language) { return std::string(language.param.name); });

}  // namespace
}  // namespace tessara
