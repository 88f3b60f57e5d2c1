#include <QFontMetrics>
#include <vector>

#include <gtest/gtest.h>

#include "FakeHost.h"
#include "FakePlatform.h"
#include "Inside.h"
#include "base/Text.h"
#include "control/ModulInfoFLII.h"
#include "qt/LabelView.h"
#include "qt/PanelView.h"

namespace tessara::testing {
namespace {

/// The panel in each of the languages, by number, with all inputs visible.
class PanelLanguagesTest : public ::testing::TestWithParam<std::int16_t> {
 protected:
  PanelLanguagesTest() {
    const std::u16string key = u"Software\\Orvane\\Tessara-Conf\\Settings|";
    platform.settings[key + u"ShowBaudrateSelection"] = std::int32_t{1};
    platform.settings[key + u"ShowAddressSelection"] = std::int32_t{1};
    platform.serialKey.ports = {{"\\Device\\Silabser0", "COM3"}};
    control.UserControl_Initialize();
    control.put_AppPathString(fromUtf8(TESSARA_LANGUAGE_FOLDER));
    control.put_Language(GetParam());
    control.UserControl_Show();
    view.show();
  }

  FakePlatform platform;
  FakeHost host{platform.log};
  ModulInfoFLII control{platform, host};
  PanelView view{inside(control).panel};
};

INSTANTIATE_TEST_SUITE_P(AllEleven, PanelLanguagesTest, ::testing::Range<std::int16_t>(1, 12));

TEST_P(PanelLanguagesTest, EveryCaptionFits) {
  for (const double size : {1.0, 1.5, 2.0}) {
    view.resize(view.sizeHint() * size);
    for (const Widget& caption : inside(control).panel.LngLabel) {
      const auto& shown = dynamic_cast<LabelView&>(*view.viewOf(caption));
      EXPECT_FALSE(shown.text().isEmpty()) << toUtf8(caption.name());
      EXPECT_FALSE(shown.isCut()) << shown.text().toStdString() << " at " << size;
    }
  }
}

TEST_P(PanelLanguagesTest, TheTextsComeFromTheFile) {
  EXPECT_FALSE(moduleWide().LanguageFileError);
  EXPECT_EQ(moduleWide().TextModulInfo[1] == u"COM-Port", GetParam() == 1);
}

TEST_P(PanelLanguagesTest, NoCaptionIsScaledDown) {
  for (const Widget& caption : inside(control).panel.LngLabel) {
    const auto& shown = dynamic_cast<LabelView&>(*view.viewOf(caption));
    const QFontMetrics metrics(shown.font());
    const QString text = shown.text().trimmed();
    const QSize needed = shown.height() >= 2 * metrics.lineSpacing()
                             ? metrics.boundingRect(shown.rect(), Qt::TextWordWrap, text).size()
                             : QSize(metrics.horizontalAdvance(text), metrics.height());
    EXPECT_LE(needed.width(), shown.width()) << text.toStdString();
    EXPECT_LE(needed.height(), shown.height()) << text.toStdString();
  }
}

TEST_P(PanelLanguagesTest, NoCaptionTouchesAFieldOrAnotherCaption) {
  Panel& panel = inside(control).panel;
  std::vector<const Widget*> others{
      &panel.txtDevAddr,      &panel.ComboComPort,  &panel.ComboBaudrate,
      &panel.LabelDeviceName, &panel.LblFwVersion,  &panel.LabelDeviceDescription,
      &panel.LblSerialNumber, &panel.LblModulState, &panel.LblChnState};
  for (const Widget& caption : panel.LngLabel) {
    const QRect place = view.viewOf(caption)->geometry();
    for (const Widget* other : others) {
      EXPECT_FALSE(place.intersects(view.viewOf(*other)->geometry()))
          << toUtf8(caption.name()) << " and " << toUtf8(other->name());
    }
    others.push_back(&caption);
  }
}

TEST_P(PanelLanguagesTest, EveryButtonHasAToolTip) {
  for (const Widget* widget : inside(control).panel.widgets()) {
    if (widget->kind() == WidgetKind::Button) {
      EXPECT_FALSE(view.viewOf(*widget)->toolTip().isEmpty()) << toUtf8(widget->name());
    }
  }
}

}  // namespace
}  // namespace tessara::testing
