#include <QApplication>

#include "HostBench.h"
#include "PanelWindow.h"
#include "base/Text.h"
#include "dialogs/Maker.h"

namespace tessara::testing {
namespace {

class PanelWindowTest : public HostBench {
 protected:
  /// The status reported by the control.
  QString statusText() {
    const auto labels = window->statusBar()->findChildren<QLabel*>();
    return labels.isEmpty() ? QString() : labels.front()->text();
  }
  QImage light() {
    auto* found = window->statusBar()->findChild<QWidget*>("activity");
    return found->grab().toImage();
  }
};

TEST_F(PanelWindowTest, ShowsTheStatusOfTheControl) {
  control().put_StatusString(Variant(std::u16string(u"Connecting")));
  EXPECT_EQ(statusText(), "Connecting");
  control().put_StatusString(Variant(std::u16string()));
  EXPECT_EQ(statusText(), "");
}

TEST_F(PanelWindowTest, ANewStatusOfTheControlReplacesAMessageOfTheHost) {
  panel().CmdSave2DiskParameter.press();
  control().put_StatusString(Variant(std::u16string()));
  EXPECT_FALSE(told().isEmpty());
  control().put_StatusString(Variant(std::u16string(u"Reading data")));
  EXPECT_EQ(told(), "");
}

TEST_F(PanelWindowTest, TheLightDiffersForIdleBusyAndFailed) {
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

TEST_F(PanelWindowTest, TheLightHasAnAccessibleName) {
  control().put_DeviceActive(3);
  EXPECT_EQ(window->statusBar()->findChild<QWidget*>("activity")->accessibleName(),
            "The module could not be read");
}

TEST_F(PanelWindowTest, ShowsHelpInTheBrowserWithoutAViewer) {
  platform.programs.result = 42;
  window->openingEnded("/opt/tessara/Help_001.chm", Shell::noAssociation);
  EXPECT_EQ(platform.log.entries().back(),
            "ShellExecuteA 0 Open /opt/tessara/Help_001/index.html ()  1");
  EXPECT_EQ(told(), "No help viewer is installed: the help is shown in the browser.");
}

TEST_F(PanelWindowTest, ReportsThatNeitherViewerNorBrowserIsInstalled) {
  platform.programs.result = Shell::noAssociation;
  window->openingEnded("/opt/tessara/Help_001.chm", Shell::noAssociation);
  EXPECT_EQ(told(), "No program for showing the help is installed.");
}

TEST_F(PanelWindowTest, OpensTheBrowserOnlyForHelpWithoutAViewer) {
  platform.log.clear();
  window->openingEnded("/opt/tessara/Help_001.chm", 42);
  window->openingEnded("/opt/tessara/Help_001.chm", Shell::fileNotFound);
  window->openingEnded("https://www.example.com", Shell::noAssociation);
  EXPECT_TRUE(platform.log.entries().empty());
  EXPECT_EQ(told(), "");
}

TEST_F(PanelWindowTest, ReportsThatThereIsNoPort) {
  inside(control()).ReaderMissing = true;
  window->read();
  EXPECT_TRUE(told().startsWith("No port or reader found"));
}

TEST_F(PanelWindowTest, ReportsTheCauseOfAFailedRead) {
  platform.device.before = [](const std::string& entry) {
    if (entry.starts_with("ReadDeviceIdentifier")) throw std::runtime_error("COM3: no answer");
  };
  log.add(DeviceCall{"ModbusCommObject", "ReadDeviceIdentifier", {192}, {}, "COM3: no answer", 1});
  window->read();
  EXPECT_EQ(told(), "COM3: no answer");
}

TEST_F(PanelWindowTest, TheTitleNamesTheModule) {
  EXPECT_EQ(window->windowTitle(), "Module information");
  panel().LabelDeviceName.setCaption(u"TESSARA TM 151" + std::u16string(18, u'\0'));
  control().put_DeviceActive(0);
  EXPECT_EQ(window->windowTitle(), "TESSARA TM 151 - Module information");
}

TEST_F(PanelWindowTest, PassesItsWindowToTheControl) {
  EXPECT_NE(inside(control()).hWnd, 0U);
  EXPECT_EQ(inside(control()).hWnd, window->winId());
}

TEST_F(PanelWindowTest, HasAnIcon) {
  EXPECT_FALSE(window->windowIcon().isNull());
}

TEST_F(PanelWindowTest, EnablesTransferAfterARead) {
  EXPECT_TRUE(inside(control()).bCmdStoreLocked);
  window->read();
  EXPECT_TRUE(panel().CmdStoreParameter.enabled());
  EXPECT_FALSE(inside(control()).bCmdStoreLocked);
}

TEST_F(PanelWindowTest, DisablesTransferAfterAFailedRead) {
  platform.device.connects = false;
  window->read();
  EXPECT_FALSE(panel().CmdStoreParameter.enabled());
}

TEST_F(PanelWindowTest, TransferReportsThatTheModuleMatchesAndThereIsNothingToTransfer) {
  window->read();
  dialogs.acceptBox();
  press(Qt::Key_F6);
  EXPECT_EQ(dialogs.boxes(),
            QStringList("The module matches. This program has no parameters to transfer."));
  EXPECT_FALSE(inside(control()).HostActive);
  EXPECT_TRUE(panel().CmdDeviceInfo.enabled());
}

TEST_F(PanelWindowTest, IsBusyForTheControlWhileItsDialogIsOpen) {
  window->read();
  bool wasActive = false;
  bool couldRead = true;
  dialogs.look([&](QDialog&) {
    wasActive = inside(control()).HostActive;
    couldRead = panel().CmdDeviceInfo.enabled();
  });
  press(Qt::Key_F6);
  EXPECT_TRUE(wasActive);
  EXPECT_FALSE(couldRead);
}

TEST_F(PanelWindowTest, TransfersNothingToAnotherModule) {
  window->read();
  platform.device.identifier = {49, 1, 16, 162};
  press(Qt::Key_F6);
  EXPECT_FALSE(log.text().contains("SetConfiguration"));
}

TEST_F(PanelWindowTest, LogsTheCallbacksOfARead) {
  log.clear();
  window->read();
  QStringList callbacks;
  for (int row = 0; row < log.rowCount(); ++row) {
    callbacks += log.data(log.index(row, EventLog::What), Qt::DisplayRole).toString();
  }
  callbacks.removeAll("StatusChange");
  EXPECT_EQ(callbacks, (QStringList{"ModulActive(1)", "ModulActive(0)", "NFCReader(false)"}));
}

TEST_F(PanelWindowTest, RemembersTheGeometryOfTheWindow) {
  window->resize(1000, 300);
  window->move(240, 150);
  const QPoint place = window->frameGeometry().topLeft();
  window->close();
  PanelWindow again(platform, log, *settings);
  again.takePlace();
  EXPECT_EQ(again.size(), QSize(1000, 300));
  // The frame that the window system puts around a window is known once it is shown.
  constexpr int frame = 40;
  EXPECT_LE((again.frameGeometry().topLeft() - place).manhattanLength(), frame);
}

TEST_F(PanelWindowTest, RemembersTheRateOfARead) {
  EXPECT_EQ(settings->baudrate(), std::nullopt);
  control().put_Baudrate(38400);
  platform.device.connects = false;
  window->read();
  EXPECT_EQ(settings->baudrate(), std::nullopt);
  platform.device.connects = true;
  window->read();
  EXPECT_EQ(settings->baudrate(), 38400);
}

TEST_F(PanelWindowTest, DoesNotRememberTheRateOfASecondAttempt) {
  int attempts = 0;
  platform.device.before = [&](const std::string& entry) {
    if (entry.starts_with("ReadDeviceIdentifier") && ++attempts == 1) {
      throw std::runtime_error("no answer");
    }
  };
  window->read();
  ASSERT_EQ(control().get_Baudrate(), 115200);
  EXPECT_EQ(settings->baudrate(), 19200);
}

TEST_F(PanelWindowTest, ShowsTheLogoNamedInTheSettings) {
  EXPECT_TRUE(std::holds_alternative<std::monostate>(panel().PictureLogo.state().picture));
  platform.settings[u"Software\\Orvane\\Tessara-Conf\\Settings|Logo"] = std::u16string(u"logo.png");
  platform.files = {inside(control()).AppPathString + u"\\logo.png"};
  window->controlIsUp();
  EXPECT_FALSE(std::holds_alternative<std::monostate>(panel().PictureLogo.state().picture));
}

TEST_F(PanelWindowTest, ShowsTheMakersVersionInTheAboutBox) {
  EXPECT_EQ(toUtf8(inside(control()).VersionString), toUtf8(maker.version));
}

TEST_F(PanelWindowTest, MayBeClosedAndDestroyedAtAnyTime) {
  window->close();
  EXPECT_FALSE(window->isVisible());
}

}  // namespace
}  // namespace tessara::testing
