#include <gmock/gmock.h>

#include "DialogFixture.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct LanguageRow {
  std::int16_t number;
  Widget frmLanguage::*option;
  const char* name;
  /// The caption with the German texts in force.
  const char16_t* caption;
};

const std::vector<LanguageRow> languages{
    {1, &frmLanguage::OptionDE, "OptionDE", u"Deutsch"},
    {2, &frmLanguage::OptionGB, "OptionGB", u"English"},
    {3, &frmLanguage::OptionFR, "OptionFR", u"français"},
    {4, &frmLanguage::OptionES, "OptionES", u"español"},
    {5, &frmLanguage::OptionIT, "OptionIT", u"italiano"},
    {6, &frmLanguage::OptionPT, "OptionPT", u"português"},
    {7, &frmLanguage::OptionTR, "OptionTR", u"Türkçe"},
    {8, &frmLanguage::OptionRU, "OptionRU", u"Russisch"},
    {9, &frmLanguage::OptionCN, "OptionCN", u"Chinesisch (vereinfacht)"},
    {10, &frmLanguage::OptionPL, "OptionPL", u"polski"},
    {11, &frmLanguage::OptionJP, "OptionJP", u"Japanisch"},
};

class LanguageDialog : public DialogFixture {
 protected:
  /// The options that are set in the dialog when it is shown for `language`.
  std::vector<std::string> preselected(std::int16_t language) {
    std::vector<std::string> set;
    person([&] {
      for (const Widget* widget : dialog<frmLanguage>().widgets()) {
        if (widget->state().value) set.push_back(toUtf8(widget->name()));
      }
    });
    inside(control).Language = language;
    inside(control).panel.cmdSettings.press();
    return set;
  }

  /// Chooses an option, or keeps the one that is set, and presses OK.
  void choose(Widget frmLanguage::*option = nullptr) {
    person([this, option] {
      auto& form = dialog<frmLanguage>();
      if (option != nullptr) (form.*option).select();
      form.cmdOK.press();
    });
    inside(control).panel.cmdSettings.press();
  }

  void loadTexts(const char16_t* restart) { moduleWide().TextModulInfo[17] = restart; }
};

TEST_F(LanguageDialog, TheOptionsAreInTheirOwnLanguageBeforeTheFormIsLoaded) {
  frmLanguage form(platform);
  EXPECT_EQ(form.OptionDE.caption(), u"Deutsch");
  EXPECT_EQ(form.OptionRU.caption(), u"???????");
  EXPECT_EQ(form.OptionCN.caption(), u"?\?(?\?)");
  EXPECT_EQ(form.OptionJP.caption(), u"???");
  EXPECT_EQ(form.cmdOK.caption(), u"OK");
  EXPECT_EQ(form.Tag(), u"");
}

TEST_F(LanguageDialog, ShowsElevenOptionsThreeOfThemInTheCurrentLanguage) {
  person([this] {
    for (const auto& row : languages) {
      EXPECT_EQ((dialog<frmLanguage>().*row.option).caption(), row.caption) << row.name;
      EXPECT_EQ(toUtf8((dialog<frmLanguage>().*row.option).name()), row.name);
    }
    EXPECT_EQ(dialog<frmLanguage>().cmdOK.caption(), u"OK");
    EXPECT_EQ(dialog<frmLanguage>().cmdCancel.caption(), u"Abbrechen");
  });
  inside(control).panel.cmdSettings.press();
}

TEST_F(LanguageDialog, ATextThatTheFileLeftEmptyLeavesItsCaptionEmpty) {
  moduleWide().TextModulInfo[23].clear();
  moduleWide().TextButtons[0].clear();
  person([this] {
    EXPECT_EQ(dialog<frmLanguage>().OptionRU.caption(), u"");
    EXPECT_EQ(dialog<frmLanguage>().cmdCancel.caption(), u"");
  });
  inside(control).panel.cmdSettings.press();
}

TEST_F(LanguageDialog, TenPicturesStandBesideTheElevenOptions) {
  const frmLanguage form(platform);
  for (int number = 1; number <= 10; ++number) {
    const Widget* box = form.find(u"UniPictureBox" + decimalText(number));
    ASSERT_NE(box, nullptr);
    EXPECT_TRUE(std::holds_alternative<std::u16string>(box->state().picture));
  }
  EXPECT_EQ(form.find(u"UniPictureBox11"), nullptr);
}

TEST_F(LanguageDialog, TheTitleBarIsAttachedAndShowsItsText) {
  person([this] {
    ASSERT_EQ(forms.open->titleBar(), &dialog<frmLanguage>().UniFormCaptionB1);
    EXPECT_EQ(forms.open->titleBar()->caption(), u"Sprache");
  });
  inside(control).panel.cmdSettings.press();
}

TEST_F(LanguageDialog, PreselectsTheOptionOfTheNumber) {
  for (const auto& row : languages) {
    EXPECT_THAT(preselected(row.number), ElementsAre(row.name));
  }
}

TEST_F(LanguageDialog, PreselectsGermanForAnUnknownNumber) {
  for (const std::int16_t number : std::vector<std::int16_t>{12, -1, 32767, -32768}) {
    EXPECT_THAT(preselected(number), ElementsAre("OptionDE")) << number;
  }
}

TEST_F(LanguageDialog, Preselects0ByTheCountryOfTheSystem) {
  const std::vector<std::pair<std::u16string, std::string>> countries{
      {u"33", "OptionFR"}, {u"34", "OptionES"}, {u"43", "OptionDE"}, {u"49", "OptionDE"},
      {u"1", "OptionGB"},  {u"7", "OptionGB"},  {u"", "OptionGB"}};
  for (const auto& [code, option] : countries) {
    platform.systemLocale.country = code;
    EXPECT_THAT(preselected(0), ElementsAre(option)) << toUtf8(code);
  }
}

TEST_F(LanguageDialog, OkOnTheLanguagePreselectedFor0Stores1AndNot0) {
  platform.systemLocale.country = u"43";
  inside(control).Language = 0;
  choose();
  EXPECT_EQ(inside(control).Language, 1);
  EXPECT_EQ(log.count(std::string(savedLanguage) + "1 type 4"), 1U);
}

TEST_F(LanguageDialog, OkStoresTheNumberOfTheChosenOption) {
  for (const auto& row : languages) {
    inside(control).Language = row.number == 1 ? 2 : 1;
    log.clear();
    choose(row.option);
    EXPECT_EQ(inside(control).Language, row.number) << row.name;
    EXPECT_EQ(log.count(savedLanguage + std::to_string(row.number) + " "), 1U) << row.name;
  }
}

TEST_F(LanguageDialog, OkWithNoOptionSetKeepsTheNumber) {
  inside(control).Language = 12;
  person([this] {
    dialog<frmLanguage>().OptionDE.setValue(false);
    dialog<frmLanguage>().cmdOK.press();
  });
  inside(control).panel.cmdSettings.press();
  EXPECT_EQ(inside(control).Language, 12);
}

TEST_F(LanguageDialog, ChoosingAnOptionClearsTheOthers) {
  person([this] {
    auto& form = dialog<frmLanguage>();
    form.OptionFR.select();
    form.OptionJP.select();
    EXPECT_TRUE(form.OptionJP.state().value);
    EXPECT_FALSE(form.OptionFR.state().value);
    EXPECT_FALSE(form.OptionDE.state().value);
  });
  inside(control).panel.cmdSettings.press();
}

TEST_F(LanguageDialog, OkMakesItsCallsInOrder) {
  inside(control).Language = 3;
  inside(control).AppPathString = u"/app";
  choose(&frmLanguage::OptionES);
  EXPECT_THAT(
      log.entries(),
      ElementsAre("GetValue 2 Software\\Orvane\\Tessara-Conf\\Settings|Icon", "FileExists /app\\",
                  "frmLanguage shown", "modal run", "OptionFR.value=false", "OptionES.value=true",
                  "cmdOK.gradient=16645629,15921131", "modal end", "frmLanguage hidden",
                  std::string(savedLanguage) + "4 type 4",
                  "Show 48 MERIDEX_CONF: Bitte Anwendung neu starten!\n\nPlease restart "
                  "application!"));
}

TEST_F(LanguageDialog, TheOutcomeIsThereOnlyAfterTheFormHasHiddenItself) {
  struct Watch : FormObserver {
    void formShown(Form& /*form*/) override {}
    void formHidden(Form& hidden) override { tag = hidden.Tag(); }
    std::u16string tag = u"none";
  };
  const std::vector<std::pair<Widget frmLanguage::*, std::u16string>> outcomes{
      {&frmLanguage::cmdOK, u"1"}, {&frmLanguage::cmdCancel, u"2"}};
  for (const auto& row : outcomes) {
    frmLanguage form(platform);
    Watch watch;
    person([&] { (form.*row.first).press(); });
    form.showModal(platform.loop, &watch);
    EXPECT_EQ(watch.tag, u"");
    EXPECT_EQ(form.Tag(), row.second);
  }
}

TEST_F(LanguageDialog, CancelWithAChangedSelectionChangesNothing) {
  inside(control).Language = 2;
  person([this] {
    dialog<frmLanguage>().OptionFR.select();
    auto& form = dialog<frmLanguage>();
    form.cmdCancel.press();
    EXPECT_EQ(form.Tag(), u"2");
    EXPECT_EQ(form.GetLanguage(), 2);
  });
  inside(control).panel.cmdSettings.press();
  EXPECT_EQ(inside(control).Language, 2);
  EXPECT_THAT(log.only({"SetValue", "Show"}), IsEmpty());
  EXPECT_EQ(log.count("cmdCancel.gradient=16645629,15921131"), 1U);
}

TEST_F(LanguageDialog, OkOnTheCurrentLanguageStillStoresAndAsksForARestart) {
  inside(control).Language = 5;
  choose();
  EXPECT_EQ(log.count(std::string(savedLanguage) + "5 "), 1U);
  EXPECT_EQ(log.count("Show 48 MERIDEX_CONF: "), 1U);
}

TEST_F(LanguageDialog, TheEnglishSentenceIsAddedUnlessEnglishWasCurrent) {
  loadTexts(u"Please restart!");
  inside(control).Language = 2;
  choose(&frmLanguage::OptionFR);
  EXPECT_EQ(log.only({"Show"}).back(), "Show 48 MERIDEX_CONF: Please restart!");

  loadTexts(u"Redémarrez !");
  inside(control).Language = 3;
  choose(&frmLanguage::OptionGB);
  EXPECT_EQ(log.only({"Show"}).back(),
            "Show 48 MERIDEX_CONF: Redémarrez !\n\nPlease restart application!");

  inside(control).Language = 0;
  choose(&frmLanguage::OptionGB);
  EXPECT_EQ(log.only({"Show"}).back(),
            "Show 48 MERIDEX_CONF: Redémarrez !\n\nPlease restart application!");
}

TEST_F(LanguageDialog, StoresTheAnswerToTheMessage) {
  platform.messageAnswer = 7;
  choose();
  EXPECT_EQ(inside(control).lMsgResult, 7);
}

TEST_F(LanguageDialog, TheCurrentTextsDoNotChange) {
  choose(&frmLanguage::OptionFR);
  EXPECT_EQ(moduleWide().TextModulInfo[16], u"Sprache");
  EXPECT_EQ(log.count("FileExists /app/MERIDEX_CONF"), 0U);
}

TEST_F(LanguageDialog, IsUnloadedWhateverWasChosen) {
  choose();
  EXPECT_TRUE(moduleWide().frmLanguage.expired());
  person([this] { dialog<frmLanguage>().cmdCancel.press(); });
  inside(control).panel.cmdSettings.press();
  EXPECT_TRUE(moduleWide().frmLanguage.expired());
  EXPECT_EQ(inside(control).panel.blockedBy(), u"");
}

TEST_F(LanguageDialog, SetsTheIconThatTheSettingNamesInTheFolderOfTheHost) {
  platform.settings[iconSetting] = std::u16string(u"logo.ico");
  platform.files = {u"/app\\logo.ico"};
  inside(control).AppPathString = u"/app";
  person([this] { EXPECT_EQ(forms.open->icon(), u"/app\\logo.ico"); });
  inside(control).panel.cmdSettings.press();
  EXPECT_EQ(log.count("load /app\\logo.ico"), 1U);
}

TEST_F(LanguageDialog, ReadsItsIconEachTimeItLoads) {
  platform.files = {u"/app\\first.ico", u"/app\\second.ico"};
  inside(control).AppPathString = u"/app";
  for (const auto* icon : {u"first.ico", u"second.ico"}) {
    platform.settings[iconSetting] = std::u16string(icon);
    person([&] { EXPECT_EQ(forms.open->icon(), u"/app\\" + std::u16string(icon)); });
    inside(control).panel.cmdSettings.press();
  }
  EXPECT_EQ(log.count("modal run"), 2U);
}

TEST_F(LanguageDialog, AMissingIconFileIsNotAnError) {
  platform.settings[iconSetting] = std::u16string(u"logo.ico");
  inside(control).AppPathString = u"/app";
  person([this] { EXPECT_EQ(forms.open->icon(), u""); });
  inside(control).panel.cmdSettings.press();
  EXPECT_EQ(log.count("FileExists /app\\logo.ico"), 1U);
  EXPECT_EQ(log.count("load"), 0U);
}

TEST_F(LanguageDialog, AnIconThatIsNotAPictureIsAnErrorAndTheNextPressStartsAfresh) {
  platform.settings[iconSetting] = std::u16string(u"logo.ico");
  platform.files = {u"/app\\logo.ico"};
  platform.pictures.broken = true;
  inside(control).AppPathString = u"/app";
  EXPECT_EQ(errorNumberOf([this] { inside(control).panel.cmdSettings.press(); }), 481);
  EXPECT_EQ(log.count("frmLanguage shown"), 0U);
  platform.pictures.broken = false;
  choose();
  EXPECT_EQ(log.count("frmLanguage hidden"), 1U);
}

TEST_F(LanguageDialog, AFailedWriteOfTheLanguagePassesItsErrorOnAndKeepsTheNewNumber) {
  person([this] {
    auto& form = dialog<frmLanguage>();
    form.OptionPL.select();
    moduleWide().RegistryHelper.reset();
    form.cmdOK.press();
  });
  EXPECT_EQ(errorNumberOf([this] { inside(control).panel.cmdSettings.press(); }), 91);
  EXPECT_EQ(inside(control).Language, 10);
  EXPECT_EQ(log.count("Show"), 0U);
  EXPECT_TRUE(moduleWide().frmLanguage.expired());
}

TEST_F(LanguageDialog, TheButtonsShowByTheirColoursWhetherThePointerIsOverThem) {
  person([this] {
    for (Widget* button : {&dialog<frmLanguage>().cmdOK, &dialog<frmLanguage>().cmdCancel}) {
      EXPECT_EQ(button->state().gradientstartcolor, 0xFDFDFDU);
      EXPECT_EQ(button->state().gradientendcolor, 0xF2EFEBU);
      button->pointerEnter();
      EXPECT_EQ(button->state().gradientstartcolor, 0xE1DFDBU);
      EXPECT_EQ(button->state().gradientendcolor, 0xE6E4E1U);
      button->pointerLeave();
      EXPECT_EQ(button->state().gradientstartcolor, 0xFDFDFDU);
      EXPECT_EQ(button->state().gradientendcolor, 0xF2EFEBU);
    }
  });
  inside(control).panel.cmdSettings.press();
}

TEST_F(LanguageDialog, APressUnderThePointerLeavesTheButtonIdle) {
  frmLanguage form(platform);
  for (Widget* button : {&form.cmdOK, &form.cmdCancel}) {
    button->pointerEnter();
    button->press();
    EXPECT_EQ(button->state().gradientstartcolor, 0xFDFDFDU);
    EXPECT_EQ(button->state().gradientendcolor, 0xF2EFEBU);
  }
}

}  // namespace
}  // namespace tessara::testing
