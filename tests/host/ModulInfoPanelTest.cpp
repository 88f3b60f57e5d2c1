#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>
#include <chrono>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "FakePlatform.h"
#include "base/Text.h"
#include "control/Panel.h"
#include "dialogs/Maker.h"
#include "host/ModulInfoPanel.h"
#include "linux/SettingsFolder.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

const std::filesystem::path modules = TESSARA_MODULES;

class HostPanel : public SettingsFolder {
 protected:
  HostPanel() { ::setenv("XDG_RUNTIME_DIR", folder().c_str(), 1); }

  /// Writes down what the panel calls back.
  void listenTo(ModulInfoPanel& panel) {
    QObject::connect(&panel, &ModulInfoPanel::ModulActive, [this](int status) {
      received.push_back("active " + std::to_string(status));
    });
    QObject::connect(&panel, &ModulInfoPanel::StatusChange, [this](const QString& text) {
      received.push_back("status " + text.toStdString());
    });
    QObject::connect(&panel, &ModulInfoPanel::NFCReader,
                     [this](bool isReader) { received.emplace_back(isReader ? "NFC" : "no NFC"); });
    const auto note = [&](auto signal, const char* name) {
      QObject::connect(&panel, signal, [this, name] { received.emplace_back(name); });
    };
    note(&ModulInfoPanel::SetConfiguration, "store");
    note(&ModulInfoPanel::SaveConfiguration, "save");
    note(&ModulInfoPanel::LoadConfiguration, "load");
    note(&ModulInfoPanel::PrintConfiguration, "print");
    note(&ModulInfoPanel::DataTransfer, "data");
  }

  /// Closes the next modal window and keeps what it was.
  template <class Window>
  void closeNext(QString (Window::*what)() const) {
    QObject::connect(&watch_, &QTimer::timeout, [this, what] {
      if (auto* window = qobject_cast<Window*>(QApplication::activeModalWidget())) {
        closed = (window->*what)().toStdString();
        window->close();
      }
    });
    watch_.start(std::chrono::milliseconds(10));
  }

  std::vector<std::string> received;
  std::string closed;

 private:
  QTimer watch_;
};

TEST_F(HostPanel, ReadsASimulatedModule) {
  put(userFile(), "[Settings]\nLanguage=2\n");
  ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  panel.bringUp();
  panel.read();

  EXPECT_EQ(panel.control().get_DataValid(), 1);
  EXPECT_EQ(toUtf8(toText(panel.control().get_DeviceName(), {})).substr(0, 14), "TESSARA UM 161");
  EXPECT_THAT(toUtf8(panel.control().panel().widget(u"LblModulState").caption()),
              HasSubstr("No error"));
  EXPECT_THAT(toUtf8(toText(panel.control().get_ProductLink(), {})), HasSubstr("um-161"));
}

TEST_F(HostPanel, SignalsTheCallbacksOfARead) {
  put(userFile(), "[Settings]\nLanguage=2\n");
  ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  panel.bringUp();
  listenTo(panel);
  panel.read();

  EXPECT_THAT(received, ElementsAre("status ", "status Connecting", "active 1", "status ",
                                    "status ", "active 0", "no NFC"));
}

TEST_F(HostPanel, SignalsTheRequestsOfTheUser) {
  ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  panel.bringUp();
  panel.read();
  panel.control().UnLockCmdStore();
  listenTo(panel);
  panel.control().panel().widget(u"CmdSave2DiskParameter").press();
  panel.control().panel().widget(u"CmdOpenDiskParameter").press();
  panel.control().panel().widget(u"CmdPrintConfiguration").press();
  EXPECT_THAT(received, ElementsAre("save", "load", "print"));

  received.clear();
  EXPECT_FALSE(panel.control().get_DataTrafic());
  EXPECT_THAT(received, ElementsAre("data"));

  received.clear();
  panel.control().panel().widget(u"CmdStoreParameter").press();
  EXPECT_THAT(received, ::testing::Contains("store"));
}

TEST_F(HostPanel, ComesUpInTheLanguageThatWasChosenLast) {
  put(userFile(), "[Settings]\nLanguage=2\n");
  ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  panel.bringUp();
  EXPECT_EQ(panel.control().get_Language(), 2);
  EXPECT_EQ(toUtf8(panel.control().panel().widget(u"LngLabel[3]").caption()), "Device type:");
}

TEST_F(HostPanel, ComesUpAtThePortThatWasChosenLast) {
  put(userFile(),
      "[Ports]\nCOM8\\Device=/dev/pts/8\nCOM9\\Device=/dev/pts/9\n[Settings]\nCOM%20Port=9\n");
  ModulInfoPanel panel;
  panel.bringUp();
  EXPECT_EQ(panel.control().get_ComPort(), 9);
}

TEST_F(HostPanel, LeavesTheChoiceToAHostThatShowsTheControlItself) {
  put(userFile(),
      "[Ports]\nCOM8\\Device=/dev/pts/8\nCOM9\\Device=/dev/pts/9\n"
      "[Settings]\nCOM%20Port=9\nLanguage=2\n");
  ModulInfoPanel panel;
  panel.control().put_Language(3);
  panel.control().put_ComPort(8);
  panel.control().UserControl_Show();
  EXPECT_EQ(panel.control().get_ComPort(), 8);
  EXPECT_EQ(panel.control().get_Language(), 3);
}

TEST_F(HostPanel, DoesNotChangeTheSettingsOnASimulatedModule) {
  ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  panel.bringUp();
  panel.read();
  EXPECT_FALSE(std::filesystem::exists(userFile()));
}

TEST_F(HostPanel, SaysWhatIsWrongWithAModuleFile) {
  put(folder() / "module.json", "{}");
  EXPECT_THAT(errorOf([&] { const ModulInfoPanel panel(nullptr, folder() / "module.json"); }),
              HasSubstr("module.json"));
}

TEST_F(HostPanel, SaysWhatIsWrongWithASetting) {
  put(userFile(), "[Settings]\nLanguage=English\n");
  ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  EXPECT_THROW(panel.bringUp(), RunTimeError);
}

TEST_F(HostPanel, ShowsTheErrorOfARead) {
  ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  panel.bringUp();
  QObject::connect(&panel, &ModulInfoPanel::StatusChange, [](const QString& /*text*/) {
    throw RunTimeError(ErrorNumber::InvalidCall, "the host is at a loss");
  });
  closeNext(&QMessageBox::text);
  panel.read();
  EXPECT_EQ(closed, "the host is at a loss");
}

TEST_F(HostPanel, WorksOnASystemThatTheHostPutTogether) {
  FakePlatform platform;
  platform.serialKey.ports = {{"\\Device\\Silabser0", "COM3"}};
  {
    ModulInfoPanel panel(platform);
    listenTo(panel);
    panel.bringUp();
    EXPECT_EQ(toText(panel.control().get_AppPathString(), {}), platform.appPath());
    EXPECT_EQ(panel.control().get_ComPort(), 3);
    EXPECT_EQ(received.back(), "no NFC");
  }
  EXPECT_EQ(platform.log.count("ModbusCommObject.ShutDown"), 1U);
}

TEST_F(HostPanel, ReturnsTheQtWidgetsOfItsButtons) {
  ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  panel.bringUp();
  auto* button = qobject_cast<QAbstractButton*>(
      panel.viewOf(panel.control().panel().widget(u"CmdDeviceInfo")));
  ASSERT_NE(button, nullptr);
  button->click();
  EXPECT_EQ(panel.control().get_DataValid(), 1);
  EXPECT_EQ(panel.viewOf(panel.control().panel().widget(u"TimerScanDevice")), nullptr);
}

TEST_F(HostPanel, ShowsTheErrorsOfTheHost) {
  const ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  closeNext(&QMessageBox::text);
  panel.showError("the disk is full");
  EXPECT_EQ(closed, "the disk is full");
}

TEST_F(HostPanel, IsFilledByItsView) {
  ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  panel.resize(panel.sizeHint());
  EXPECT_EQ(panel.sizeHint().width(), Panel::width / 15);
  EXPECT_EQ(panel.sizeHint().height(), Panel::height / 15);
  panel.show();
  EXPECT_EQ(panel.childrenRect().size(), panel.size());
}

TEST_F(HostPanel, GivesTheControlItsWindow) {
  ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  EXPECT_EQ(panel.control().get_hWnd(), 0U);
  panel.show();
  EXPECT_NE(panel.control().get_hWnd(), 0U);
  EXPECT_EQ(panel.control().get_hWnd(), panel.winId());
}

TEST_F(HostPanel, OpensTheDialogsOfTheControl) {
  put(userFile(), "[Settings]\nLanguage=2\n");
  ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  panel.bringUp();
  panel.show();
  closeNext(&QDialog::windowTitle);
  panel.control().panel().widget(u"CmdAbout").press();
  EXPECT_EQ(closed, "Information");
}

TEST_F(HostPanel, ShowsTheVersionOfTheProductUntilTheHostSetsItsOwn) {
  ModulInfoPanel panel(nullptr, modules / "tessara-um-161.json");
  EXPECT_EQ(toUtf8(toText(panel.control().get_VersionString(), {})), toUtf8(maker.version));
  panel.control().put_VersionString(std::u16string(u"7.1"));
  panel.bringUp();
  EXPECT_EQ(toText(panel.control().get_VersionString(), {}), u"7.1");
}

TEST_F(HostPanel, CanBeDeletedByASlotDuringARead) {
  auto* panel = new ModulInfoPanel(nullptr, modules / "tessara-um-161.json");
  panel->bringUp();
  bool isGone = false;
  QObject::connect(panel, &QObject::destroyed, [&] { isGone = true; });
  QObject::connect(panel, &ModulInfoPanel::ModulActive, panel, &QObject::deleteLater);
  QTimer::singleShot(0, panel, &ModulInfoPanel::read);
  while (!isGone) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

}  // namespace
}  // namespace tessara::testing
