#include <gmock/gmock.h>

#include "ControlFixture.h"
#include "widgets/Form.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;

class SmallForm : public Form {
 public:
  explicit SmallForm(CallLog& log) : Form(u"small"), log_(log) {}

  Widget& defaultButton() override { return button; }
  Widget& cancelButton() override { return button; }
  [[nodiscard]] Place area() const override { return {0, 0, 100, 100}; }

  Widget first{*this, u"first", WidgetKind::Option};
  Widget second{*this, u"second", WidgetKind::Option};
  Widget button{*this, u"button", WidgetKind::Button};
  Widget link{*this, u"link", WidgetKind::HyperLink, {.caption = u"info@maker.example"}};

 protected:
  void Form_Load() override { log_.add("load"); }

 private:
  CallLog& log_;
};

class FormTest : public ::testing::Test, public FormObserver {
 protected:
  void formShown(Form& shown) override {
    log.add("shown");
    onShown(shown);
  }
  void formHidden(Form& /*hidden*/) override { log.add("hidden"); }

  CallLog log;
  FakeEventLoop loop{log};
  SmallForm form{log};
  PanelLog widgets{log};
  std::function<void(Form&)> onShown = [](Form&) {};
};

TEST_F(FormTest, LoadsIsShownRunsAndIsHidden) {
  loop.onModalRun = [this] {
    EXPECT_TRUE(form.visible());
    form.hide();
    log.add("after hide");
  };
  form.showModal(loop, this);
  EXPECT_FALSE(form.visible());
  EXPECT_THAT(log.entries(),
              ElementsAre("load", "shown", "modal run", "modal end", "hidden", "after hide"));
}

TEST_F(FormTest, HidingTwiceDoesNothing) {
  loop.onModalRun = [this] {
    form.hide();
    form.hide();
  };
  form.showModal(loop, this);
  form.hide();
  EXPECT_EQ(log.count("hidden"), 1U);
}

TEST_F(FormTest, ShowingItTwiceIsAnErrorThatLeavesItOpen) {
  loop.onModalRun = [this] {
    EXPECT_EQ(errorNumberOf([this] { form.showModal(loop, this); }), 400);
    EXPECT_TRUE(form.visible());
  };
  form.showModal(loop, this);
  EXPECT_EQ(log.count("load"), 1U);
}

TEST_F(FormTest, MayBeHiddenByItsObserverAtOnce) {
  onShown = [](Form& shown) { shown.hide(); };
  bool asked = false;
  loop.onModalRun = [&] { asked = true; };
  form.showModal(loop, this);
  EXPECT_FALSE(asked);
}

TEST_F(FormTest, IsHiddenWhenAnEventThrows) {
  loop.onModalRun = [] { throw std::runtime_error("an event failed"); };
  EXPECT_THROW(form.showModal(loop, this), std::runtime_error);
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(log.count("hidden"), 1U);
}

TEST_F(FormTest, SettingAnOptionClearsTheOthersAndReportsBoth) {
  form.second.setValue(true);
  form.setObserver(&widgets);
  form.first.setValue(true);
  EXPECT_THAT(log.entries(), ElementsAre("second.value=false", "first.value=true"));
}

TEST_F(FormTest, AnOptionIsClearedWithoutSettingAnother) {
  form.first.setValue(true);
  form.first.setValue(false);
  EXPECT_FALSE(form.first.state().value);
  EXPECT_FALSE(form.second.state().value);
}

TEST_F(FormTest, APersonsChoiceRunsTheHandlerEvenForTheOptionThatIsSet) {
  int clicks = 0;
  form.first.setClickHandler([&] { ++clicks; });
  form.first.select();
  form.first.select();
  form.first.setValue(true);
  EXPECT_EQ(clicks, 2);
}

TEST_F(FormTest, ADisabledOrHiddenOptionCannotBeChosen) {
  form.first.setEnabled(false);
  EXPECT_EQ(errorNumberOf([this] { form.first.select(); }), 5);
  form.second.setVisible(false);
  EXPECT_EQ(errorNumberOf([this] { form.second.select(); }), 5);
  EXPECT_FALSE(form.first.state().value || form.second.state().value);
}

TEST_F(FormTest, APressedLinkRunsItsHandler) {
  int clicks = 0;
  form.link.setClickHandler([&] { ++clicks; });
  form.link.press();
  EXPECT_EQ(clicks, 1);
}

TEST_F(FormTest, ChangedPlacesAndColoursAreReported) {
  form.setObserver(&widgets);
  form.button.setGradient(0x010203, 0x040506);
  form.button.setLeft(450);
  EXPECT_THAT(log.entries(), ElementsAre("button.gradient=66051,263430", "button.row=0,0"));
  EXPECT_EQ(form.button.state().place.left, 450);
}

TEST_F(FormTest, ThePointerWithoutAHandlerDoesNothing) {
  form.button.pointerEnter();
  form.button.pointerLeave();
  EXPECT_TRUE(log.entries().empty());
}

}  // namespace
}  // namespace tessara::testing
