#include <gtest/gtest.h>

#include "FakeHost.h"
#include "FakePlatform.h"
#include "control/ModulInfoFLII.h"
#include "platform/Text.h"
#include "platform/qt/LabelView.h"
#include "platform/qt/PanelView.h"

namespace tessara::testing {
namespace {

/// The panel in each of the languages, by number, with all of its inputs to be seen.
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
  }

  FakePlatform platform;
  FakeHost host{platform.log};
  ModulInfoFLII control{platform, host};
  PanelView view{control.panel};
};

INSTANTIATE_TEST_SUITE_P(AllEleven, PanelLanguagesTest, ::testing::Range<std::int16_t>(1, 12));

TEST_P(PanelLanguagesTest, EveryCaptionFits) {
  for (const double size : {1.0, 1.5, 2.0}) {
    view.resize(view.sizeHint() * size);
    for (const Widget& caption : control.panel.LngLabel) {
      const auto& shown = dynamic_cast<LabelView&>(*view.viewOf(caption));
      EXPECT_FALSE(shown.text().isEmpty()) << toUtf8(caption.name());
      EXPECT_FALSE(shown.isCut()) << shown.text().toStdString() << " at " << size;
    }
  }
}

TEST_P(PanelLanguagesTest, EveryButtonSaysWhatItDoes) {
  for (const Widget* widget : control.panel.widgets()) {
    if (widget->kind() == WidgetKind::Button) {
      EXPECT_FALSE(view.viewOf(*widget)->toolTip().isEmpty()) << toUtf8(widget->name());
    }
  }
}

}  // namespace
}  // namespace tessara::testing
