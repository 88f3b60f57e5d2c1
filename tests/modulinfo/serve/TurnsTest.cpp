#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "serve/Turns.h"

namespace tessara::testing {
namespace {

constexpr auto request = Turns::Kind::Request;
constexpr auto yielding = Turns::Kind::Yield;

class SomeForm final : public Form {
 public:
  SomeForm() : Form(u"frmSome"), button_(*this, u"cmdOK", WidgetKind::Button) {}
  Widget& defaultButton() override { return button_; }
  Widget& cancelButton() override { return button_; }
  [[nodiscard]] Place area() const override { return {}; }

 private:
  void Form_Load() override {}

  Widget button_;
};

TEST(Turns, ARequestWaitsForTheOneBeforeIt) {
  Turns turns(false);
  EXPECT_TRUE(turns.mayHandle());
  {
    const Turns::Turn first(turns, request);
    EXPECT_FALSE(turns.mayHandle());
  }
  EXPECT_TRUE(turns.mayHandle());
}

TEST(Turns, ARequestWaitsForAYieldThatNoRequestHasCaused) {
  Turns turns(false);
  const Turns::Turn scan(turns, yielding);
  EXPECT_FALSE(turns.mayHandle());
}

TEST(Turns, AnOpenFormLetsRequestsInOneAfterTheOther) {
  Turns turns(false);
  const Turns::Turn opener(turns, request);
  SomeForm form;
  turns.formShown(form);
  EXPECT_TRUE(turns.mayHandle());
  {
    const Turns::Turn inner(turns, request);
    EXPECT_FALSE(turns.mayHandle());
  }
  EXPECT_TRUE(turns.mayHandle());
}

TEST(Turns, AfterAFormIsHiddenItsOpenerEndsFirst) {
  Turns turns(false);
  auto opener = std::make_unique<Turns::Turn>(turns, request);
  SomeForm form;
  turns.formShown(form);
  {
    const Turns::Turn closer(turns, request);
    turns.formHidden(form);
    EXPECT_FALSE(turns.mayHandle());
  }
  EXPECT_FALSE(turns.mayHandle());
  opener.reset();
  EXPECT_TRUE(turns.mayHandle());
}

TEST(Turns, AScanUnderAnOpenFormKeepsRequestsOut) {
  Turns turns(false);
  const Turns::Turn opener(turns, request);
  SomeForm form;
  turns.formShown(form);
  const Turns::Turn scan(turns, yielding);
  EXPECT_FALSE(turns.mayHandle());
}

TEST(Turns, OfTwoFormsTheLaterOneLetsRequestsIn) {
  Turns turns(false);
  SomeForm first;
  SomeForm second;
  const Turns::Turn opener(turns, request);
  turns.formShown(first);
  const Turns::Turn other(turns, request);
  turns.formShown(second);
  turns.formHidden(first);
  EXPECT_TRUE(turns.mayHandle());
}

TEST(Turns, ListsTheFormsThatAreShown) {
  Turns turns(false);
  SomeForm first;
  SomeForm second;
  const Turns::Turn opener(turns, request);
  turns.formShown(first);
  const Turns::Turn other(turns, request);
  turns.formShown(second);
  EXPECT_EQ(turns.forms(), (std::vector<Form*>{&first, &second}));
  turns.formHidden(first);
  EXPECT_EQ(turns.forms(), (std::vector<Form*>{&second}));
}

TEST(Turns, AReentrantClientIsAlwaysLetIn) {
  Turns turns(true);
  const Turns::Turn first(turns, request);
  EXPECT_TRUE(turns.mayHandle());
  const Turns::Turn scan(turns, yielding);
  EXPECT_TRUE(turns.mayHandle());
}

TEST(Turns, NestedRequestsOfAReentrantClientAreLimited) {
  Turns turns(true);
  std::vector<std::unique_ptr<Turns::Turn>> nested;
  for (int depth = 0; depth < Turns::maxNested; ++depth) {
    EXPECT_TRUE(turns.mayHandle());
    nested.push_back(std::make_unique<Turns::Turn>(turns, request));
  }
  EXPECT_FALSE(turns.mayHandle());
  nested.pop_back();
  EXPECT_TRUE(turns.mayHandle());
}

TEST(Turns, NotifiesWhenTheNextRequestMayBeHandled) {
  Turns turns(false);
  int told = 0;
  turns.nextMayCome = [&told] { ++told; };
  {
    const Turns::Turn opener(turns, request);
    EXPECT_EQ(told, 0);
    SomeForm form;
    turns.formShown(form);
    EXPECT_EQ(told, 1);
    turns.formHidden(form);
    EXPECT_EQ(told, 1);
  }
  EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace tessara::testing
