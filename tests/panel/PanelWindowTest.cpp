#include <QApplication>
#include <QStatusBar>

#include <gtest/gtest.h>

#include "FakePlatform.h"
#include "PanelWindow.h"
#include "platform/Text.h"

namespace tessara::testing {
namespace {

class PanelWindowTest : public ::testing::Test {
 protected:
  PanelWindowTest() {
    window.control().UserControl_Initialize();
  }

  ModulInfoFLII& control() { return window.control(); }
  /// What the control reports of itself.
  QString statusText() {
    const auto labels = window.statusBar()->findChildren<QLabel*>();
    return labels.isEmpty() ? QString() : labels.front()->text();
  }
  /// What this host has to say.
  QString told() { return window.statusBar()->currentMessage(); }
  QImage light() {
    auto* found = window.statusBar()->findChild<QWidget*>("activity");
    return found->grab().toImage();
  }

  FakePlatform platform;
  PanelWindow window{platform};
};

TEST_F(PanelWindowTest, ShowsTheStatusOfTheControl) {
  control().put_StatusString(Variant(std::u16string(u"Verbindungsaufbau")));
  EXPECT_EQ(statusText(), "Verbindungsaufbau");
  control().put_StatusString(Variant(std::u16string()));
  EXPECT_EQ(statusText(), "");
}

TEST_F(PanelWindowTest, AnswersEveryButtonForWhichThisHostHasNothing) {
  Panel& panel = control().panel;
  for (Widget* button :
       {&panel.CmdSave2DiskParameter, &panel.CmdOpenDiskParameter, &panel.CmdPrintConfiguration}) {
    window.statusBar()->clearMessage();
    button->press();
    EXPECT_FALSE(told().isEmpty()) << toUtf8(button->name());
  }
}

TEST_F(PanelWindowTest, ANewStatusOfTheControlReplacesWhatTheHostSaid) {
  control().panel.CmdSave2DiskParameter.press();
  control().put_StatusString(Variant(std::u16string()));
  EXPECT_FALSE(told().isEmpty());
  control().put_StatusString(Variant(std::u16string(u"Lese Daten")));
  EXPECT_EQ(told(), "");
}

TEST_F(PanelWindowTest, TheLightTellsWorkRestAndFailureApart) {
  const QImage rest = light();
  control().put_DeviceActive(1);
  const QImage work = light();
  control().put_DeviceActive(3);
  const QImage failure = light();
  control().put_DeviceActive(0);
  EXPECT_NE(work, rest);
  EXPECT_NE(failure, rest);
  EXPECT_NE(failure, work);
  EXPECT_EQ(light(), rest);
}

TEST_F(PanelWindowTest, TheLightIsSpoken) {
  control().put_DeviceActive(3);
  EXPECT_EQ(window.statusBar()->findChild<QWidget*>("activity")->accessibleName(),
            "The module could not be read");
}

TEST_F(PanelWindowTest, TellsThatThereIsNoPort) {
  control().ReaderMissing = true;
  window.read();
  EXPECT_TRUE(told().startsWith("No port and no reader was found"));
}

TEST_F(PanelWindowTest, TheTitleNamesTheModule) {
  EXPECT_EQ(window.windowTitle(), "Module information");
  control().panel.LabelDeviceName.setCaption(u"TESSARA TM 151" + std::u16string(18, u'\0'));
  control().put_DeviceActive(0);
  EXPECT_EQ(window.windowTitle(), "TESSARA TM 151 - Module information");
}

TEST_F(PanelWindowTest, HasAnIcon) {
  EXPECT_FALSE(window.windowIcon().isNull());
}

TEST_F(PanelWindowTest, MayBeClosedAndDestroyedAtAnyTime) {
  window.show();
  QApplication::processEvents();
  window.close();
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace tessara::testing
