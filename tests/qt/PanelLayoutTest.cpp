#include <gtest/gtest.h>

#include "SamplePanel.h"
#include "base/Text.h"
#include "qt/PanelLayout.h"

namespace tessara::testing {
namespace {

constexpr double pixelsPerTwip = 96.0 / 1440;
constexpr QSizeF ownSize(803, 167);

class PanelLayoutTest : public ::testing::Test {
 protected:
  PanelLayoutTest() { bringUp(panel, german); }

  [[nodiscard]] QRect place(const Widget& widget, const QSizeF& view = ownSize) const {
    return PanelLayout(panel, view, pixelsPerTwip).place(widget);
  }
  static bool isDrawn(const Widget& widget) {
    return widget.kind() != WidgetKind::Timer && widget.kind() != WidgetKind::ImageList;
  }

  Panel panel;
};

TEST_F(PanelLayoutTest, HasTheDesignedGeometryAtItsNaturalSize) {
  EXPECT_EQ(place(panel.CmdDeviceInfo), QRect(12, 14, 33, 33));
  EXPECT_EQ(place(panel.ImageDevState).size(), QSize(32, 32));
}

TEST_F(PanelLayoutTest, ButtonsMeasure495Twips) {
  for (const Widget* widget : panel.widgets()) {
    if (widget->kind() == WidgetKind::Button) {
      EXPECT_EQ(widget->state().place.width, 495) << toUtf8(widget->name());
      EXPECT_EQ(widget->state().place.height, 495) << toUtf8(widget->name());
    }
  }
}

TEST_F(PanelLayoutTest, KeepsAllWidgetsInsideThePanel) {
  for (const QSizeF view : {ownSize, ownSize * 1.5, QSizeF(1400, 200)}) {
    const QRect room(QPoint(0, 0), view.toSize());
    for (const Widget* widget : panel.widgets()) {
      if (isDrawn(*widget)) {
        EXPECT_TRUE(room.contains(place(*widget, view))) << toUtf8(widget->name());
      }
    }
  }
}

TEST_F(PanelLayoutTest, NoWidgetsOverlap) {
  showInputs(panel);
  panel.PictureLogo.setPicture(u"logo.svg");
  panel.PictureDevice.setPicture(u"device.svg");
  for (const Widget* one : panel.widgets()) {
    for (const Widget* other : panel.widgets()) {
      const bool isPair = one < other && isDrawn(*one) && isDrawn(*other) &&
                          one->kind() != WidgetKind::Frame && other->kind() != WidgetKind::Frame;
      if (isPair) {
        EXPECT_FALSE(place(*one).intersects(place(*other)))
            << toUtf8(one->name()) << " and " << toUtf8(other->name());
      }
    }
  }
}

TEST_F(PanelLayoutTest, TheDeviceTypeCaptionHasTwoRows) {
  panel.LngLabel[3].setRow(240, 255);
  EXPECT_EQ(place(panel.LngLabel[3]).top(), 16);
  EXPECT_EQ(place(panel.LngLabel[3]).height(), 17);
  panel.LngLabel[3].setRow(140, 400);
  EXPECT_EQ(place(panel.LngLabel[3]).top(), 9);
  EXPECT_EQ(place(panel.LngLabel[3]).height(), 27);
}

TEST_F(PanelLayoutTest, ScalesAsAWholeWithItsView) {
  const PanelLayout twice(panel, ownSize * 2, pixelsPerTwip);
  EXPECT_DOUBLE_EQ(twice.scale(), 2);
  EXPECT_EQ(twice.place(panel.CmdDeviceInfo), QRect(24, 28, 66, 66));
}

TEST_F(PanelLayoutTest, ScalesToTheSmallerOfWidthAndHeight) {
  EXPECT_DOUBLE_EQ(PanelLayout(panel, QSizeF(803, 400), pixelsPerTwip).scale(), 1);
  EXPECT_DOUBLE_EQ(PanelLayout(panel, QSizeF(2000, 167), pixelsPerTwip).scale(), 1);
}

TEST_F(PanelLayoutTest, RemainingWidthGoesToTheValues) {
  const QSizeF wide(1003, 167);
  EXPECT_EQ(place(panel.CmdAbout, wide), place(panel.CmdAbout));
  for (const Widget* value :
       {&panel.LabelDeviceName, &panel.LblSerialNumber, &panel.LblModulState, &panel.Frame2}) {
    EXPECT_EQ(place(*value, wide).width(), place(*value).width() + 200) << toUtf8(value->name());
    EXPECT_EQ(place(*value, wide).left(), place(*value).left());
  }
}

TEST_F(PanelLayoutTest, ThePortListTakesTheSpaceOfHiddenInputs) {
  EXPECT_EQ(place(panel.ComboComPort).right(), place(panel.txtDevAddr).right());
  panel.txtDevAddr.setVisible(true);
  EXPECT_EQ(place(panel.ComboComPort).right(), place(panel.txtDevAddr).left() - 7);
  panel.ComboBaudrate.setVisible(true);
  EXPECT_EQ(place(panel.ComboComPort).right(), place(panel.ComboBaudrate).left() - 7);
  panel.txtDevAddr.setVisible(false);
  EXPECT_EQ(place(panel.ComboBaudrate).right(), place(panel.txtDevAddr).right());
}

TEST_F(PanelLayoutTest, TheStatusTakesTheSpaceOfMissingLogos) {
  EXPECT_EQ(place(panel.Frame14).right(), place(panel.Frame2).right());
  panel.PictureLogo.setPicture(u"logo.svg");
  EXPECT_EQ(place(panel.Frame14).right(), place(panel.PictureLogo).left() - 7);
  panel.PictureDevice.setPicture(u"device.svg");
  EXPECT_EQ(place(panel.Frame14).right(), place(panel.PictureDevice).left() - 7);
  panel.PictureLogo.setPicture({});
  EXPECT_EQ(place(panel.PictureDevice).right(), place(panel.Frame2).right());
}

TEST_F(PanelLayoutTest, FollowsTheResolutionOfTheScreen) {
  const PanelLayout fine(panel, ownSize * 1.5, pixelsPerTwip * 1.5);
  EXPECT_DOUBLE_EQ(fine.scale(), 1);
  EXPECT_EQ(fine.place(panel.CmdDeviceInfo), QRect(18, 21, 50, 50));
}

}  // namespace
}  // namespace tessara::testing
