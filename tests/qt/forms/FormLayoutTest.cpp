#include <map>

#include <gtest/gtest.h>

#include "qt/FormLayout.h"

namespace tessara::testing {
namespace {

/// Two columns of text with a picture before the second one, and two buttons below.
class TwoColumns : public Form {
 public:
  TwoColumns() : Form(u"columns") {}
  Widget& defaultButton() override { return ok; }
  Widget& cancelButton() override { return cancel; }
  [[nodiscard]] Place area() const override { return {0, 0, 1000, 600}; }

  Widget heading{*this, u"heading", WidgetKind::Label, {.place = {100, 0, 800, 50}}};
  Widget left{*this, u"left", WidgetKind::Label, {.place = {100, 100, 200, 50}}};
  Widget right{*this, u"right", WidgetKind::Option, {.place = {600, 100, 200, 50}}};
  Widget picture{*this, u"picture", WidgetKind::PictureBox, {.place = {500, 100, 60, 50}}};
  Widget below{*this, u"below", WidgetKind::Label, {.place = {100, 200, 800, 50}}};
  Widget ok{*this, u"ok", WidgetKind::Button, {.place = {500, 300, 150, 50}}};
  Widget cancel{*this, u"cancel", WidgetKind::Button, {.place = {700, 300, 200, 50}}};
  Widget title{*this, u"title", WidgetKind::FormCaption};

 protected:
  void Form_Load() override {}
};

class FormLayoutTest : public ::testing::Test {
 protected:
  FormLayout layout(double pixelsPerTwip = 1) {
    return {form,
            pixelsPerTwip,
            {[this](const Widget& widget) { return widths[&widget]; },
             [this](const Widget& widget, double width) {
               heightsAskedAt[&widget] = width;
               return heights[&widget];
             }}};
  }

  TwoColumns form;
  std::map<const Widget*, double> widths;
  std::map<const Widget*, double> heights;
  std::map<const Widget*, double> heightsAskedAt;
};

TEST_F(FormLayoutTest, TextsExtendToTheirNeighbourOrTheEdge) {
  const FormLayout made = layout();
  EXPECT_EQ(made.size(), QSize(1000, 600));
  EXPECT_EQ(made.place(form.left), QRect(100, 100, 310, 50));
  EXPECT_EQ(made.place(form.right), QRect(600, 100, 300, 50));
  EXPECT_EQ(made.place(form.heading), QRect(100, 0, 800, 50));
  EXPECT_EQ(made.place(form.picture), QRect(500, 100, 60, 50));
  EXPECT_EQ(made.place(form.ok), QRect(500, 300, 150, 50));
  EXPECT_EQ(made.place(form.cancel), QRect(700, 300, 200, 50));
}

TEST_F(FormLayoutTest, ScalesWithThePixelsPerTwip) {
  const FormLayout made = layout(0.5);
  EXPECT_EQ(made.size(), QSize(500, 300));
  EXPECT_EQ(made.place(form.right), QRect(300, 50, 150, 25));
}

TEST_F(FormLayoutTest, ATextThatFitsMovesNothing) {
  widths[&form.left] = 310;
  EXPECT_EQ(layout().size(), QSize(1000, 600));
}

TEST_F(FormLayoutTest, ATextThatNeedsMoreSpaceMovesWidgetsToItsRight) {
  widths[&form.left] = 340;
  const FormLayout made = layout();
  EXPECT_EQ(made.size(), QSize(1030, 600));
  EXPECT_EQ(made.place(form.left), QRect(100, 100, 340, 50));
  EXPECT_EQ(made.place(form.picture), QRect(530, 100, 60, 50));
  EXPECT_EQ(made.place(form.right), QRect(630, 100, 300, 50));
  EXPECT_EQ(made.place(form.heading).width(), 830);
}

TEST_F(FormLayoutTest, SpaceInsertedForOneTextCountsForThoseThatSpanIt) {
  widths[&form.left] = 340;
  widths[&form.heading] = 840;
  const FormLayout made = layout();
  EXPECT_EQ(made.size(), QSize(1040, 600));
  EXPECT_EQ(made.place(form.heading).width(), 840);
}

TEST_F(FormLayoutTest, TheButtonsKeepTheirDistanceFromTheRightEdge) {
  widths[&form.right] = 350;
  const FormLayout made = layout();
  EXPECT_EQ(made.size(), QSize(1050, 600));
  EXPECT_EQ(made.place(form.cancel), QRect(750, 300, 200, 50));
  EXPECT_EQ(made.place(form.ok), QRect(550, 300, 150, 50));
}

TEST_F(FormLayoutTest, AButtonWithALongCaptionGrowsToTheLeftAndMovesTheOther) {
  widths[&form.cancel] = 230;
  const FormLayout made = layout();
  EXPECT_EQ(made.size(), QSize(1000, 600));
  EXPECT_EQ(made.place(form.cancel), QRect(670, 300, 230, 50));
  EXPECT_EQ(made.place(form.ok), QRect(470, 300, 150, 50));
}

TEST_F(FormLayoutTest, AMultiLineTextMovesWidgetsBelowIt) {
  heights[&form.below] = 90;
  const FormLayout made = layout();
  EXPECT_EQ(made.size(), QSize(1000, 640));
  EXPECT_EQ(made.place(form.below), QRect(100, 200, 800, 90));
  EXPECT_EQ(made.place(form.ok), QRect(500, 340, 150, 50));
  EXPECT_EQ(made.place(form.left), QRect(100, 100, 310, 50));
  EXPECT_EQ(heightsAskedAt[&form.below], 800);
}

}  // namespace
}  // namespace tessara::testing
