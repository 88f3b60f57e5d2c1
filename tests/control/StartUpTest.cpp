#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <unistd.h>

#include "ControlFixture.h"
#include "control/Transport.h"
#include "ports/AdapterWords.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char16_t* key = u"Software\\Orvane\\Tessara-Conf\\Settings|";

class StartUp : public ControlFixture {
 protected:
  StartUp() {
    platform.serialKey.ports = {{"\\Device\\Silabser0", "COM3"},
                                {"\\Device\\ViatorX", "COM5"},
                                {"\\Device\\Silabser1", "COM31"}};
    inside(control).CommObject.reset();
    inside(control).CommunicationObject.reset();
    moduleWide().AppTitle = u"MERIDEX_CONF";
    log.clear();
  }

  void setting(const char16_t* name, const Variant& value) {
    platform.settings[std::u16string(key) + name] = value;
  }
  void show() { control.UserControl_Show(); }
  [[nodiscard]] const Panel& panel() const { return inside(control).panel; }
  [[nodiscard]] std::vector<std::string> path() const {
    return log.only(
        {"InitModbusObject", "InitHartObject", "InitNFCObject", "NFCReader", "SetValue", "CR95HF"});
  }
  [[nodiscard]] bool selected(const std::shared_ptr<tessara::CommunicationObject>& object) const {
    return inside(control).CommObject == object && inside(control).CommunicationObject == object;
  }
};

TEST_F(StartUp, RunsItsStepsInOrder) {
  setting(u"ShowBaudrateSelection", std::int64_t{1});
  inside(control).ComPort = 31;
  show();
  EXPECT_THAT(
      log.only({"GetValue 2 Software", "LngLabel[2].visible", "LngLabel[0].visible",
                "ComboBaudrate", "txtDevAddr", "ComboComPort", "CR95HF", "Init", "NFCReader",
                "SetValue", "FileExists", "Show", "LngLabel[0].caption", "LngLabel[8].caption",
                "LngLabel[3].row", "CmdAbout.toolTip"}),
      ElementsAre("GetValue 2 Software\\Orvane\\Tessara-Conf\\Settings|ShowBaudrateSelection",
                  "LngLabel[2].visible=true", "ComboBaudrate.visible=true",
                  "GetValue 2 Software\\Orvane\\Tessara-Conf\\Settings|ShowAddressSelection",
                  "LngLabel[0].visible=false", "txtDevAddr.visible=false",
                  "GetValue 2 Software\\Orvane\\Tessara-Conf\\Settings|ShowAllComPorts",
                  "ComboComPort.items=0", "ComboComPort.items=1", "ComboComPort.items=2",
                  "ComboComPort.items=3", "CR95HFDLL_USBconnect", "ComboComPort.index=2",
                  "InitModbusObject", "NFCReader(false)",
                  "SetValue 2 Software\\Orvane\\Tessara-Conf\\Settings|COM Port=31 type 4",
                  "InitModbusObject", "NFCReader(false)", "ComboBaudrate.text=19200",
                  "FileExists MERIDEX_CONF.elg",
                  "Show 48 MERIDEX_CONF: Error language file! Set to default!",
                  "LngLabel[0].caption=Adresse:", "LngLabel[8].caption=Kanal Status: ",
                  "LngLabel[3].row=240,255", "CmdAbout.toolTipText=Information..."));
}

TEST_F(StartUp, ContactsNoModuleAndStartsNoTimer) {
  show();
  EXPECT_THAT(log.only({"Connect", "Read", "CMD48", "Close", "ModulActive", "Timer"}), IsEmpty());
  EXPECT_FALSE(inside(control).DeviceConnected);
  EXPECT_EQ(control.get_DataValid(), 0);
  EXPECT_FALSE(panel().ImageDevState.visible());
}

class ShowSettings : public StartUp, public ::testing::WithParamInterface<int> {
 protected:
  void expectInputs(bool visible) const {
    EXPECT_EQ(panel().LngLabel[2].visible(), visible);
    EXPECT_EQ(panel().ComboBaudrate.visible(), visible);
    EXPECT_EQ(panel().LngLabel[0].visible(), visible);
    EXPECT_EQ(panel().txtDevAddr.visible(), visible);
  }
};

TEST_P(ShowSettings, OnlyOneShowsTheInputs) {
  setting(u"ShowBaudrateSelection", std::int64_t{GetParam()});
  setting(u"ShowAddressSelection", std::int64_t{GetParam()});
  show();
  expectInputs(GetParam() == 1);
}

INSTANTIATE_TEST_SUITE_P(Values, ShowSettings, ::testing::Values(1, 0, -1, 2));

TEST_F(ShowSettings, OneMayBeText) {
  setting(u"ShowBaudrateSelection", std::u16string(u"1"));
  setting(u"ShowAddressSelection", std::u16string(u"1"));
  show();
  expectInputs(true);
}

TEST_F(ShowSettings, EmptySettingsHideBoth) {
  show();
  expectInputs(false);
}

TEST_F(StartUp, ASettingThatIsNotANumberEndsTheSequence) {
  setting(u"ShowAddressSelection", std::u16string(u"yes"));
  EXPECT_EQ(errorNumberOf([&] { show(); }), 13);
  EXPECT_THAT(log.only({"ComboComPort", "NFCReader", "LngLabel[0].caption"}), IsEmpty());
}

TEST_F(StartUp, ShowAllComPortsReachesTheEnumeration) {
  platform.serialKey.ports = {{"\\Device\\Serial0", "COM1"}};
  setting(u"ShowAllComPorts", std::int64_t{1});
  show();
  EXPECT_THAT(panel().ComboComPort.state().items, ElementsAre(u"Serial Port (COM1)"));
}

TEST_F(StartUp, AListedPortIsSelectedWithModbus) {
  show();
  EXPECT_EQ(panel().ComboComPort.text(), u"USB Adapter OKT (COM31)");
  EXPECT_EQ(inside(control).ComPort, 31);
  EXPECT_TRUE(selected(moduleWide().ModbusCommObject));
  EXPECT_FALSE(inside(control).bNFCReader);
  EXPECT_FALSE(inside(control).HartMode);
}

TEST_F(StartUp, APortThatIsNotInTheListSelectsTheFirstLineAndTakesItsNumber) {
  inside(control).ComPort = 8;
  show();
  EXPECT_EQ(panel().ComboComPort.state().index, 0);
  EXPECT_EQ(inside(control).ComPort, 3);
}

TEST_F(StartUp, AHartLineSelectsTheHartObjectAndInitialisesItTwice) {
  inside(control).ComPort = 5;
  show();
  EXPECT_TRUE(inside(control).HartMode);
  EXPECT_TRUE(selected(moduleWide().HartCommObject));
  EXPECT_THAT(path(),
              ElementsAre("CR95HFDLL_USBconnect", "InitHartObject", "NFCReader(false)",
                          "SetValue 2 Software\\Orvane\\Tessara-Conf\\Settings|COM Port=5 type 4",
                          "InitHartObject", "NFCReader(false)"));
}

TEST_F(StartUp, ATwn4LineSelectsTheNfcObjectWithItsOwnPort) {
  platform.serialKey.ports = {{"\\Device\\USBSER000", "COM9"}};
  platform.settings[u"SYSTEM\\CurrentControlSet\\Services\\usbser\\enum|Count"] = std::int64_t{1};
  platform.settings[u"SYSTEM\\CurrentControlSet\\Services\\usbser\\enum|0"] =
      std::u16string(u"USB\\VID_09D8&PID_0420\\1");
  platform.settings
      [u"SYSTEM\\CurrentControlSet\\Enum\\USB\\VID_09D8&PID_0420\\1\\Device "
       u"Parameters|PortName"] = std::u16string(u"COM9");
  inside(control).ComPort = 9;
  show();
  EXPECT_EQ(panel().ComboComPort.text(), u"TWN4 NFC-Adapter (COM9)");
  EXPECT_EQ(inside(control).ComPort, 9);
  EXPECT_TRUE(inside(control).bNFCReader);
  EXPECT_TRUE(selected(moduleWide().NfcCommObject));
  EXPECT_EQ(inside(control).sNFCMCURevision, u"");
  EXPECT_THAT(log.only({"InitNFCObject", "NFCReader"}),
              ElementsAre("InitNFCObject", "NFCReader(true)", "InitNFCObject", "NFCReader(true)"));
}

TEST_F(StartUp, TheUsbReaderIsTheLineAfterThePorts) {
  platform.readerLibrary.connectStatus = 0;
  inside(control).ComPort = 999;
  show();
  EXPECT_EQ(panel().ComboComPort.state().items.size(), 4U);
  EXPECT_EQ(panel().ComboComPort.state().index, 3);
  EXPECT_EQ(panel().ComboComPort.text(), u"NFC-USB-ZORVEN-ADAPTER");
  EXPECT_EQ(control.get_NFCReader(), 1);
  EXPECT_EQ(inside(control).ComPort, 999);
  EXPECT_TRUE(selected(moduleWide().NfcCommObject));
  EXPECT_EQ(inside(control).sNFCMCURevision, u"1.4.15");
}

TEST_F(StartUp, AnUnselectedUsbReaderIsListedToo) {
  platform.readerLibrary.connectStatus = 0;
  inside(control).ComPort = 3;
  show();
  EXPECT_EQ(panel().ComboComPort.state().items.back(), u"NFC-USB-ZORVEN-ADAPTER");
  EXPECT_FALSE(inside(control).bNFCReader);
  EXPECT_TRUE(selected(moduleWide().ModbusCommObject));
}

TEST_F(StartUp, AMissingReaderThatWasChosenGivesTheFirstPort) {
  inside(control).ComPort = 999;
  show();
  EXPECT_EQ(panel().ComboComPort.state().index, 0);
  EXPECT_EQ(inside(control).ComPort, 3);
  EXPECT_FALSE(inside(control).bNFCReader);
}

TEST_F(StartUp, APortWithTheReadersNumberIsTakenForAReaderThatIsPresent) {
  platform.serialKey.ports = {{"\\Device\\Silabser0", "COM999"}};
  platform.readerLibrary.connectStatus = 0;
  inside(control).ComPort = 3;
  show();
  EXPECT_EQ(panel().ComboComPort.state().index, 0);
  EXPECT_TRUE(inside(control).bNFCReader);
  EXPECT_TRUE(selected(moduleWide().NfcCommObject));
  EXPECT_THAT(log.only({"Init", "NFCReader"}), ElementsAre("InitModbusObject", "NFCReader(false)",
                                                           "InitNFCObject", "NFCReader(true)"));
}

TEST_F(StartUp, AReaderThatDoesNotAnswerTheEchoIsNotAReader) {
  platform.readerLibrary.connectStatus = 0;
  platform.readerLibrary.echoStatus = 4;
  show();
  EXPECT_EQ(panel().ComboComPort.state().items.size(), 3U);
  EXPECT_THAT(log.only({"CR95HF"}), ElementsAre("CR95HFDLL_USBconnect", "CR95HFDll_Echo 256"));
  EXPECT_EQ(inside(control).sNFCMCURevision, u"");
}

TEST_F(StartUp, TheStatusOfTheRevisionIsNotTested) {
  platform.readerLibrary.connectStatus = 0;
  platform.readerLibrary.revisionStatus = 4;
  platform.readerLibrary.revisionReply = "";
  show();
  EXPECT_EQ(panel().ComboComPort.state().items.size(), 4U);
  EXPECT_EQ(inside(control).sNFCMCURevision, u"0.0.0");
}

TEST_F(StartUp, AMissingReaderLibraryEndsTheSequence) {
  platform.readerLibrary.missing = true;
  EXPECT_THROW(show(), std::runtime_error);
  EXPECT_THAT(log.only({"NFCReader", "LngLabel[0].caption"}), IsEmpty());
}

TEST_F(StartUp, WithoutPortAndReaderModbusIsSelectedAndTheListEmpty) {
  platform.serialKey.ports.clear();
  inside(control).ComPort = 3;
  show();
  EXPECT_TRUE(inside(control).ReaderMissing);
  EXPECT_EQ(inside(control).ComPort, 3);
  EXPECT_TRUE(panel().ComboComPort.state().items.empty());
  EXPECT_EQ(panel().ComboComPort.state().index, -1);
  EXPECT_TRUE(selected(moduleWide().ModbusCommObject));
  EXPECT_THAT(path(), ElementsAre("CR95HFDLL_USBconnect", "InitModbusObject", "NFCReader(false)"));
  log.clear();
  control.AutomaticConnection();
  EXPECT_THAT(log.entries(), ElementsAre("ModulActive(6)"));
}

TEST_F(StartUp, WithoutPortsTheReadersLineIsSelected) {
  platform.serialKey.ports.clear();
  platform.readerLibrary.connectStatus = 0;
  inside(control).ComPort = 3;
  show();
  EXPECT_FALSE(inside(control).ReaderMissing);
  EXPECT_EQ(inside(control).ComPort, 999);
  EXPECT_THAT(panel().ComboComPort.state().items, ElementsAre(u"NFC-USB-ZORVEN-ADAPTER"));
  EXPECT_EQ(panel().ComboComPort.state().index, 0);
  EXPECT_THAT(path(),
              ElementsAre("CR95HFDLL_USBconnect", "CR95HFDll_Echo 256", "CR95HFDLL_getMCUrev",
                          "InitNFCObject", "NFCReader(true)",
                          "SetValue 2 Software\\Orvane\\Tessara-Conf\\Settings|COM Port=999 type 4",
                          "InitNFCObject", "NFCReader(true)"));
}

TEST_F(StartUp, WithoutPortsASilentReaderIsAnInvalidValueAndEndsTheSequence) {
  platform.serialKey.ports.clear();
  platform.readerLibrary.connectStatus = 0;
  platform.readerLibrary.echoStatus = 4;
  EXPECT_EQ(errorNumberOf([&] { show(); }), 380);
  EXPECT_EQ(inside(control).ComPort, 999);
  EXPECT_THAT(log.only({"Init", "NFCReader", "LngLabel[0].caption", "ComboBaudrate.text"}),
              IsEmpty());
}

TEST_F(StartUp, ARateThatTheHostDidNotSetIsShownAsZero) {
  inside(control).Baudrate = 0;
  show();
  EXPECT_EQ(panel().ComboBaudrate.text(), u"0");
}

TEST_F(StartUp, TheHostsRateIsUsedEvenWithTheRateHidden) {
  inside(control).Baudrate = 57600;
  show();
  EXPECT_FALSE(panel().ComboBaudrate.visible());
  EXPECT_EQ(panel().ComboBaudrate.text(), u"57600");
  EXPECT_EQ(inside(control).Baudrate, 57600);
}

TEST_F(StartUp, AFurtherShowRebuildsTheListAndKeepsReaderMissing) {
  platform.serialKey.ports.clear();
  show();
  platform.serialKey.ports = {{"\\Device\\Silabser0", "COM3"}};
  show();
  EXPECT_THAT(panel().ComboComPort.state().items, ElementsAre(u"USB Adapter OKT (COM3)"));
  EXPECT_TRUE(inside(control).ReaderMissing);
}

TEST_F(StartUp, AFurtherShowWithoutPortsKeepsHartMode) {
  inside(control).ComPort = 5;
  show();
  platform.serialKey.ports.clear();
  show();
  EXPECT_TRUE(inside(control).HartMode);
  EXPECT_TRUE(selected(moduleWide().HartCommObject));
  EXPECT_EQ(panel().ComboComPort.state().index, -1);
  EXPECT_EQ(panel().ComboComPort.text(), u"");
}

TEST_F(StartUp, AMissingLanguageFileWarnsAndSetsTheGermanTexts) {
  moduleWide().TextModulInfo[0] = u"from a file";
  moduleWide().TextModulInfo[30] = u"spare";
  platform.messageAnswer = 5;
  show();
  EXPECT_EQ(panel().LngLabel[0].caption(), u"Adresse:");
  EXPECT_EQ(moduleWide().TextModulInfo[30], u"spare");
  EXPECT_EQ(inside(control).lMsgResult, 5);
}

TEST_F(StartUp, CaptionsAndToolTipsAreSet) {
  show();
  const std::vector<std::u16string> captions{
      u"Adresse:",        u"COM-Port:",         u"Baudrate:",
      u"Ger\u00E4tetyp:", u"Firmware Version:", u"Beschreibung:",
      u"Seriennummer:",   u"Modul Status: ",    u"Kanal Status: "};
  for (std::size_t i = 0; i < captions.size(); ++i) {
    EXPECT_EQ(panel().LngLabel[i].caption(), captions[i]);
  }
  EXPECT_THAT(log.only({"Cmd", "cmd"}),
              ElementsAre("CmdDeviceInfo.toolTipText=Parameter aus Modul lesen",
                          "CmdStoreParameter.toolTipText=Parameter zum Modul \u00FCbertragen",
                          "CmdOfflineConfigure.toolTipText=Offline Konfiguration...",
                          "CmdOpenDiskParameter.toolTipText=Parameter von Disk laden...",
                          "CmdSave2DiskParameter.toolTipText=Parameter auf Disk speichern...",
                          "cmdSettings.toolTipText=Sprache...",
                          "CmdPrintConfiguration.toolTipText=Konfiguration drucken...",
                          "CmdHelp.toolTipText=Hilfe...", "CmdAbout.toolTipText=Information..."));
}

/// A German language file with another device type caption, in a folder of its own.
class LanguageFileOnDisk : public StartUp {
 protected:
  LanguageFileOnDisk()
      : folder(std::filesystem::temp_directory_path() /
               ("tessara-startup-" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(folder);
    inside(control).AppPathString = folder.u16string();
    inside(control).Language = 1;
  }
  ~LanguageFileOnDisk() override { std::filesystem::remove_all(folder); }

  void writeDeviceType(const std::u16string& deviceType) const {
    std::u16string text = u"\uFEFF[Title]\r\n1\r\nTitle\r\n[ModulInfo]\r\n4\r\na\r\nb\r\nc\r\n";
    text += deviceType + u"\r\n";
    std::ofstream file(folder / "MERIDEX_CONF.dlg", std::ios::binary);
    for (const char16_t unit : text) {
      file.put(static_cast<char>(unit & 0xFF));
      file.put(static_cast<char>(unit >> 8));
    }
  }

  std::filesystem::path folder;
};

TEST_F(LanguageFileOnDisk, ThirteenCharactersKeepOneLineAndFourteenGetTwo) {
  writeDeviceType(u"1234567890123");
  show();
  EXPECT_EQ(panel().LngLabel[3].state().place.top, 240);
  EXPECT_EQ(panel().LngLabel[3].state().place.height, 255);
  writeDeviceType(u"12345678901234");
  show();
  EXPECT_EQ(panel().LngLabel[3].state().place.top, 140);
  EXPECT_EQ(panel().LngLabel[3].state().place.height, 400);
  EXPECT_EQ(panel().LngLabel[3].caption(), u"12345678901234:");
}

TEST_F(LanguageFileOnDisk, AValidFileDoesNotUseTheBuiltInGerman) {
  moduleWide().TextModulInfo[8] = u"";
  writeDeviceType(u"Type");
  show();
  EXPECT_EQ(panel().CmdDeviceInfo.state().toolTipText, u"");
  EXPECT_THAT(log.only({"Show "}), IsEmpty());
  EXPECT_EQ(moduleWide().AppTitle, u"Title");
}

TEST(McuRevision, TakesThreeBytesAfterResultAndLength) {
  EXPECT_EQ(McuRevisionText(u"000301040F"), u"1.4.15");
  EXPECT_EQ(McuRevisionText(u"000301040f99"), u"1.4.15");
}

TEST(McuRevision, ShortBlankOrInvalidTextCountsAsZero) {
  EXPECT_EQ(McuRevisionText(u""), u"0.0.0");
  EXPECT_EQ(McuRevisionText(u"          "), u"0.0.0");
  EXPECT_EQ(McuRevisionText(u"0003"), u"0.0.0");
  EXPECT_EQ(McuRevisionText(u"0003GG04"), u"0.4.0");
  EXPECT_EQ(McuRevisionText(u"00031GG104"), u"0.0.4");
}

}  // namespace
}  // namespace tessara::testing
