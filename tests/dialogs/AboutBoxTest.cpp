#include <gmock/gmock.h>

#include "DialogFixture.h"
#include "dialogs/Maker.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;

class AboutBox : public DialogFixture {
 protected:
  void whileOpen(const std::function<void(frmAbout&)>& look) {
    bool seen = false;
    person([&] {
      seen = true;
      look(dialog<frmAbout>());
    });
    inside(control).panel.CmdAbout.press();
    EXPECT_TRUE(seen);
  }

  std::vector<std::int32_t> secondColumn() {
    std::vector<std::int32_t> lefts;
    whileOpen([&](frmAbout& box) {
      for (const Widget* widget :
           {&box.LblPhoneNr, &box.LblFaxNr, &box.HyperLinkEmail, &box.HyperLinkWeb}) {
        lefts.push_back(widget->state().place.left);
      }
    });
    return lefts;
  }

  std::string launchOf(Widget frmAbout::*link) {
    log.clear();
    whileOpen([&](frmAbout& box) { (box.*link).press(); });
    return log.only({"ShellExecuteA"}).at(0);
  }
};

TEST_F(AboutBox, ShowsTheTextsOfTheCurrentLanguage) {
  const std::vector<std::pair<Widget frmAbout::*, const char16_t*>> captions{
      {&frmAbout::UniFormCaptionB1, u"Information"},
      {&frmAbout::LblInfo,
       u"Konfigurations- und Diagnoseprogramm für Interface Module der TESSARA, VELLUM und KORRIN- "
       u"Reihen"},
      {&frmAbout::LblFrameInformation, u"Information"},
      {&frmAbout::LblProductContactInfo, u"Produkt- und Kontaktinformationen"},
      {&frmAbout::LblPhone, u"Tel.:"},
      {&frmAbout::LblFax, u"Fax:"},
      {&frmAbout::LblEmail, u"Email:"},
      {&frmAbout::LblWeb, u"Web:"},
      {&frmAbout::LblAppTitel, u"MERIDEX-CONF"},
      {&frmAbout::cmdOK, u"OK"},
  };
  whileOpen([&](frmAbout& box) {
    for (const auto& [widget, caption] : captions) {
      EXPECT_EQ((box.*widget).caption(), caption) << toUtf8((box.*widget).name());
    }
    EXPECT_EQ(box.titleBar(), &box.UniFormCaptionB1);
  });
}

TEST_F(AboutBox, TheTitleIsNeverTranslated) {
  moduleWide().AppTitle = u"Other";
  whileOpen([](frmAbout& box) { EXPECT_EQ(box.LblAppTitel.caption(), u"MERIDEX-CONF"); });
}

TEST_F(AboutBox, ShowsTheContactDataOfTheManufacturer) {
  whileOpen([](frmAbout& box) {
    EXPECT_EQ(box.LblCompany.caption(), maker.company);
    EXPECT_EQ(box.LblCompanyAddress1.caption(), maker.address1);
    EXPECT_EQ(box.LblCompanyAddress2.caption(), maker.address2);
    EXPECT_EQ(box.LblPhoneNr.caption(), maker.phone);
    EXPECT_EQ(box.LblFaxNr.caption(), maker.fax);
    EXPECT_EQ(box.HyperLinkEmail.caption(), maker.mail);
    EXPECT_EQ(box.HyperLinkWeb.caption(), maker.web);
    EXPECT_THAT(toUtf8(box.Label31.caption()), ::testing::HasSubstr(toUtf8(maker.year)));
  });
}

TEST_F(AboutBox, ShowsTheVersionOfTheHostInPlaceOfTheDesignedOne) {
  EXPECT_EQ(frmAbout(platform).LabelRevision.caption(), u"1.0.0");
  control.put_VersionString(Variant(std::u16string(u"3.2.1")));
  whileOpen([](frmAbout& box) { EXPECT_EQ(box.LabelRevision.caption(), u"3.2.1"); });
  control.put_VersionString(Variant());
  whileOpen([](frmAbout& box) { EXPECT_EQ(box.LabelRevision.caption(), u""); });
}

TEST_F(AboutBox, HasBothPictures) {
  whileOpen([](frmAbout& box) {
    EXPECT_TRUE(std::holds_alternative<std::u16string>(box.Picture2.state().picture));
    EXPECT_TRUE(std::holds_alternative<std::u16string>(box.UniPictureBox1.state().picture));
  });
}

TEST_F(AboutBox, MakesItsCallsInOrder) {
  log.clear();
  whileOpen([](frmAbout& box) { box.cmdOK.press(); });
  EXPECT_THAT(log.entries(),
              ElementsAre("GetValue 2 Software\\Orvane\\Tessara-Conf\\Settings|Icon",
                          "FileExists \\", "frmAbout shown", "modal run",
                          "cmdOK.gradient=16645629,15921131", "modal end", "frmAbout hidden"));
}

TEST_F(AboutBox, OkHidesItAndThenSetsTheOutcome) {
  whileOpen([this](frmAbout& box) {
    log.clear();
    box.cmdOK.press();
    EXPECT_EQ(box.Tag(), u"1");
  });
  EXPECT_THAT(log.entries(),
              ElementsAre("cmdOK.gradient=16645629,15921131", "modal end", "frmAbout hidden"));
  EXPECT_TRUE(moduleWide().frmAbout.expired());
}

TEST_F(AboutBox, TheButtonShowsWhetherThePointerIsOverIt) {
  whileOpen([](frmAbout& box) {
    box.cmdOK.pointerEnter();
    EXPECT_EQ(box.cmdOK.state().gradientstartcolor, 0xE1DFDBU);
    EXPECT_EQ(box.cmdOK.state().gradientendcolor, 0xE6E4E1U);
    box.cmdOK.pointerLeave();
    EXPECT_EQ(box.cmdOK.state().gradientstartcolor, 0xFDFDFDU);
    EXPECT_EQ(box.cmdOK.state().gradientendcolor, 0xF2EFEBU);
  });
}

TEST_F(AboutBox, TheSecondColumnStaysForUpTo10Characters) {
  EXPECT_THAT(secondColumn(), ElementsAre(4600, 4600, 4600, 4600));
  moduleWide().TextMainFrame[24] = std::u16string(10, u'x');
  EXPECT_THAT(secondColumn(), ElementsAre(4600, 4600, 4600, 4600));
}

TEST_F(AboutBox, TheSecondColumnMovesBy100TwipsForEachFurtherCharacterOfTheLongest) {
  moduleWide().TextMainFrame[22] = std::u16string(14, u'x');
  EXPECT_THAT(secondColumn(), ElementsAre(5000, 5000, 5000, 5000));
  moduleWide().TextMainFrame[25] = std::u16string(15, u'x');
  EXPECT_THAT(secondColumn(), ElementsAre(5100, 5100, 5100, 5100));
}

TEST_F(AboutBox, EachOfTheFourCaptionsMayBeTheLongest) {
  for (const std::size_t entry : {22U, 23U, 24U, 25U}) {
    LoadDefaultTexts(moduleWide());
    moduleWide().TextMainFrame[entry] = std::u16string(11, u'x');
    EXPECT_THAT(secondColumn(), ElementsAre(4700, 4700, 4700, 4700)) << entry;
  }
}

TEST_F(AboutBox, ASecondColumnBeyond16BitsIsAnOverflowAndNothingIsShown) {
  moduleWide().TextMainFrame[23] = std::u16string(291, u'x');
  EXPECT_THAT(secondColumn(), ElementsAre(32700, 32700, 32700, 32700));
  log.clear();
  for (const std::size_t length : {292U, 100000U}) {
    moduleWide().TextMainFrame[23] = std::u16string(length, u'x');
    EXPECT_EQ(errorNumberOf([this] { inside(control).panel.CmdAbout.press(); }), 6);
  }
  EXPECT_EQ(log.count("frmAbout shown"), 0U);
  EXPECT_EQ(inside(control).panel.blockedBy(), u"");
  LoadDefaultTexts(moduleWide());
  EXPECT_THAT(secondColumn(), ElementsAre(4600, 4600, 4600, 4600));
}

TEST_F(AboutBox, TheIconIsSearchedInTheRootBecauseNoFolderIsSet) {
  platform.settings[iconSetting] = std::u16string(u"logo.ico");
  inside(control).AppPathString = u"/app";
  platform.files = {u"/app\\logo.ico"};
  whileOpen([](frmAbout& box) { EXPECT_EQ(box.icon(), u""); });
  EXPECT_EQ(log.count("FileExists \\logo.ico"), 1U);
  platform.files = {u"\\logo.ico"};
  whileOpen([](frmAbout& box) { EXPECT_EQ(box.icon(), u"\\logo.ico"); });
}

TEST_F(AboutBox, TheLinksOpenWhatTheyShow) {
  EXPECT_EQ(launchOf(&frmAbout::HyperLinkEmail),
            "ShellExecuteA 0 Open mailto:" + toUtf8(maker.mail) + " ()  1");
  EXPECT_EQ(launchOf(&frmAbout::HyperLinkWeb),
            "ShellExecuteA 0 Open https://" + toUtf8(maker.web) + " ()  1");
}

TEST_F(AboutBox, AWebAddressKeepsTheSchemeThatItHas) {
  log.clear();
  whileOpen([](frmAbout& box) {
    box.HyperLinkWeb.setCaption(u"http://intranet.example");
    box.HyperLinkWeb.press();
  });
  EXPECT_EQ(log.count("ShellExecuteA 0 Open http://intranet.example ()"), 1U);
}

TEST_F(AboutBox, ALinkThatNoProgramOpensDoesNothing) {
  platform.programs.result = Shell::noAssociation;
  log.clear();
  whileOpen([this](frmAbout& box) {
    EXPECT_NO_THROW(box.HyperLinkEmail.press());
    EXPECT_NO_THROW(box.HyperLinkWeb.press());
    EXPECT_EQ(log.count("ShellExecuteA"), 2U);
    EXPECT_EQ(log.count("Show"), 0U);
    EXPECT_TRUE(box.visible());
  });
}

}  // namespace
}  // namespace tessara::testing
