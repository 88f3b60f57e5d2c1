#include <memory>

#include <gmock/gmock.h>

#include "DialogFixture.h"

namespace tessara::testing {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

/// What enters the control while one of its dialogs is open.
class OpenDialog : public DialogFixture, public ::testing::WithParamInterface<const char16_t*> {
 protected:
  Widget& opener() { return *inside(control).panel.find(GetParam()); }
};

INSTANTIATE_TEST_SUITE_P(Both, OpenDialog, ::testing::Values(u"cmdSettings", u"CmdAbout"));

TEST_P(OpenDialog, AFurtherPressOnThePanelIsAnInvalidCallAndLeavesTheDialog) {
  person([this] {
    for (Widget* button : {&inside(control).panel.cmdSettings, &inside(control).panel.CmdAbout,
                           &inside(control).panel.CmdHelp, &inside(control).panel.CmdDeviceInfo}) {
      EXPECT_EQ(errorNumberOf([&] { button->press(); }), 5) << toUtf8(button->name());
    }
    EXPECT_EQ(errorNumberOf([&] { inside(control).panel.txtDevAddr.type(u"7"); }), 5);
    EXPECT_TRUE(forms.open->visible());
  });
  opener().press();
  EXPECT_EQ(log.count("modal run"), 1U);
  inside(control).panel.CmdHelp.press();
  EXPECT_EQ(log.count("ShellExecuteA"), 1U);
}

TEST_P(OpenDialog, ASecondControlOfTheThreadFindsItShownAlready) {
  ModulInfoFLII other(platform, host);
  other.UserControl_Initialize();
  other.setFormObserver(&forms);
  person([&] {
    EXPECT_EQ(errorNumberOf([&] { other.panel().widget(GetParam()).press(); }), 400);
    EXPECT_TRUE(forms.open->visible());
    EXPECT_EQ(other.panel().blockedBy(), u"");
  });
  opener().press();
  EXPECT_EQ(log.count("modal run"), 1U);
}

TEST_P(OpenDialog, TheEndOfTheControlClosesItAndNothingIsCalledAfterwards) {
  inside(control).Language = 3;
  person([this] {
    control.UserControl_Terminate();
    EXPECT_EQ(forms.open, nullptr);
    log.clear();
  });
  opener().press();
  EXPECT_THAT(log.entries(), IsEmpty());
  EXPECT_TRUE(moduleWide().frmLanguage.expired());
  EXPECT_TRUE(moduleWide().frmAbout.expired());
  EXPECT_EQ(inside(control).panel.blockedBy(), u"");
}

TEST_P(OpenDialog, TheEndOfTheControlAfterOkKeepsTheLanguage) {
  inside(control).Language = 3;
  person([this] {
    forms.open->defaultButton().press();
    control.UserControl_Terminate();
    log.clear();
  });
  opener().press();
  EXPECT_EQ(inside(control).Language, 3);
  EXPECT_THAT(log.entries(), IsEmpty());
}

TEST_P(OpenDialog, TheDialogOfAnotherControlSurvivesTheEndOfThisOne) {
  auto other = std::make_unique<ModulInfoFLII>(platform, host);
  other->UserControl_Initialize();
  person([&] {
    other.reset();
    EXPECT_TRUE(forms.open->visible());
  });
  opener().press();
  EXPECT_THAT(log.entries(), Contains("modal run"));
}

TEST_P(OpenDialog, IsClosedWithoutAnOutcomeWhenTheProgramQuits) {
  inside(control).Language = 3;
  person([] {});
  opener().press();
  EXPECT_EQ(forms.open, nullptr);
  EXPECT_THAT(log.only({"SetValue", "Show"}), IsEmpty());
  EXPECT_EQ(inside(control).Language, 3);
}

TEST_P(OpenDialog, TheControlMayBeShownAgainMeanwhile) {
  platform.serialKey.ports = {{"\\Device\\Silabser0", "COM3"}};
  person([this] {
    control.UserControl_Show();
    EXPECT_TRUE(forms.open->visible());
    forms.open->cancelButton().press();
  });
  opener().press();
  EXPECT_EQ(forms.open, nullptr);
  EXPECT_EQ(inside(control).panel.ComboComPort.state().items.size(), 1U);
}

TEST_P(OpenDialog, TheScanContinuesWhileItIsOpen) {
  control.AutomaticConnection();
  log.clear();
  person([this] { platform.loop.tick(); });
  opener().press();
  EXPECT_THAT(log.entries(), Contains("ModulActive(4)"));
}

TEST_P(OpenDialog, OpensInATurnOfTheEventLoopDuringARead) {
  bool opened = false;
  platform.loop.onYield = [&] {
    if (!std::exchange(opened, true)) opener().press();
  };
  control.AutomaticConnection();
  EXPECT_TRUE(inside(control).bDataValid);
  EXPECT_EQ(log.count("modal run"), 1U);
}

TEST_P(OpenDialog, IsAnInvalidCallForAHostThatDrawsNoForms) {
  control.setFormObserver(nullptr);
  EXPECT_EQ(errorNumberOf([this] { opener().press(); }), 5);
  EXPECT_EQ(log.count("modal run"), 0U);
  EXPECT_EQ(inside(control).panel.blockedBy(), u"");
}

TEST_P(OpenDialog, AControlInitialisedAgainMeanwhileKeepsThePanelFree) {
  person([this] {
    control.UserControl_Terminate();
    control.UserControl_Initialize();
  });
  opener().press();
  EXPECT_EQ(inside(control).panel.blockedBy(), u"");
  person([this] { forms.open->cancelButton().press(); });
  log.clear();
  opener().press();
  EXPECT_EQ(log.count("modal run"), 1U);
}

TEST(TwoControls, MayHaveTheTwoDialogsOpenOneOverTheOther) {
  FakePlatform platform;
  CallLog& log = platform.log;
  FakeHost host(log);
  ModulInfoFLII one(platform, host);
  ModulInfoFLII two(platform, host);
  PanelLog widgets(log);
  FormLog forms(log, widgets);
  for (ModulInfoFLII* control : {&one, &two}) {
    control->UserControl_Initialize();
    control->setFormObserver(&forms);
  }
  int depth = 0;
  platform.loop.onModalRun = [&] {
    if (++depth == 1) two.panel().widget(u"CmdAbout").press();
  };
  one.panel().widget(u"cmdSettings").press();
  EXPECT_EQ(depth, 2);
  EXPECT_EQ(log.count("modal end"), 2U);
}

}  // namespace
}  // namespace tessara::testing
