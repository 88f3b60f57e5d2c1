#include <limits>

#include <gmock/gmock.h>

#include "ControlFixture.h"
#include "control/MemberTable.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;

class Properties : public ControlFixture {
 protected:
  Variant get(std::string_view name) {
    const Member* member = findMember(name, MemberKind::Property);
    EXPECT_NE(member, nullptr) << name;
    return member->get(control);
  }
  void set(std::string_view name, const Variant& value) {
    const Member* member = findMember(name, MemberKind::Property);
    ASSERT_NE(member, nullptr) << name;
    member->set(control, value);
  }
  static Variant text(const char16_t* value) { return std::u16string(value); }
};

TEST_F(Properties, IdentifiersAreSignExtendedAndNarrowed) {
  control.put_DeviceID(-5);
  EXPECT_EQ(inside(control).DeviceID, -5);
  EXPECT_EQ(control.get_DeviceID(), -5);
  control.put_FamilyID(32767);
  EXPECT_EQ(control.get_FamilyID(), 32767);
}

TEST_F(Properties, AValueOutside16BitsOverflowsAndLeavesTheField) {
  inside(control).DeviceID = 1;
  inside(control).FamilyID = 2;
  inside(control).ComPort = 3;
  for (const std::int32_t value : {32768, -32769, 70000}) {
    EXPECT_EQ(errorNumberOf([&] { control.put_DeviceID(value); }), 6);
    EXPECT_EQ(errorNumberOf([&] { control.put_FamilyID(value); }), 6);
    EXPECT_EQ(errorNumberOf([&] { control.put_ComPort(value); }), 6);
  }
  EXPECT_EQ(inside(control).DeviceID, 1);
  EXPECT_EQ(inside(control).FamilyID, 2);
  EXPECT_EQ(inside(control).ComPort, 3);
}

TEST_F(Properties, FirmwareVersIsStoredInSinglePrecision) {
  control.put_FirmwareVers(1.1);
  EXPECT_EQ(inside(control).FirmwareVers, 1.1F);
  EXPECT_EQ(control.get_FirmwareVers(), static_cast<double>(1.1F));
  EXPECT_EQ(errorNumberOf([&] { control.put_FirmwareVers(1e300); }), 6);
  EXPECT_EQ(inside(control).FirmwareVers, 1.1F);
}

TEST_F(Properties, TextPropertiesTakeAnyVariantAsText) {
  for (const auto* name : {"DeviceName", "CmdLineString", "PackbLink", "ProductLink",
                           "DatasheetLink", "VersionString", "AppPathString"}) {
    set(name, std::int64_t{42});
    EXPECT_EQ(get(name), text(u"42")) << name;
    set(name, Variant{});
    EXPECT_EQ(get(name), text(u"")) << name;
    set(name, text(u"\u4E2D"));
    EXPECT_EQ(get(name), text(u"\u4E2D")) << name;
  }
  EXPECT_EQ(inside(control).panel.LabelDeviceName.caption(), u"");
}

TEST_F(Properties, NumbersBecomeTextWithTheSystemsDecimalSeparator) {
  platform.systemLocale.separator = u",";
  set("DeviceName", 1.5);
  EXPECT_EQ(inside(control).DeviceName, u"1,5");
}

TEST_F(Properties, TextsBecomeNumbersWithTheSystemsDecimalSeparator) {
  platform.systemLocale.separator = u",";
  set("FirmwareVers", text(u"1,5"));
  EXPECT_EQ(inside(control).FirmwareVers, 1.5F);
  EXPECT_EQ(errorNumberOf([&] { set("FirmwareVers", text(u"2.5")); }), 13);
  EXPECT_EQ(inside(control).FirmwareVers, 1.5F);
}

TEST_F(Properties, SerialNumberIsZeroBeforeAnyReadAndADecimalAfterwards) {
  EXPECT_EQ(control.get_SerialNumber(), Variant{std::uint64_t{0}});
  inside(control).SerialNumber = std::uint64_t{18446744073709551615U};
  EXPECT_EQ(control.get_SerialNumber(), Variant{std::uint64_t{18446744073709551615U}});
}

TEST_F(Properties, DataValidReportsOfflineModeBeforeValidData) {
  EXPECT_EQ(control.get_DataValid(), 0);
  inside(control).bDataValid = true;
  EXPECT_EQ(control.get_DataValid(), 1);
  inside(control).OfflineMode = true;
  EXPECT_EQ(control.get_DataValid(), 2);
}

TEST_F(Properties, AfterTheOfflineButtonOnlyZeroEndsOfflineMode) {
  inside(control).panel.CmdOfflineConfigure.press();
  EXPECT_EQ(control.get_DataValid(), 2);
  control.put_DataValid(1);
  EXPECT_EQ(control.get_DataValid(), 2);
  control.put_DataValid(0);
  EXPECT_EQ(control.get_DataValid(), 0);
}

TEST_F(Properties, WritingTwoToDataValidDoesNotRestoreOfflineMode) {
  control.put_DataValid(2);
  EXPECT_EQ(control.get_DataValid(), 1);
  EXPECT_FALSE(inside(control).OfflineMode);
}

TEST_F(Properties, DeviceConnectedAndQuickSetupTakeOnlyOneAsTrue) {
  for (const std::int32_t value : {-1, 0, 2}) {
    control.put_DeviceConnected(1);
    control.put_QuickSetup(1);
    EXPECT_EQ(control.get_DeviceConnected(), 1);
    EXPECT_EQ(control.get_QuickSetup(), 1);
    control.put_DeviceConnected(value);
    control.put_QuickSetup(value);
    EXPECT_EQ(control.get_DeviceConnected(), 0);
    EXPECT_EQ(control.get_QuickSetup(), 0);
  }
}

TEST_F(Properties, ComPortDoesNotChangeTheSelectedLine) {
  inside(control).panel.ComboComPort.addItem(u"Serial Port (COM7)");
  log.clear();
  control.put_ComPort(7);
  EXPECT_EQ(control.get_ComPort(), 7);
  EXPECT_TRUE(log.entries().empty());
}

TEST_F(Properties, TheSerialLineIsEightEvenOne) {
  EXPECT_EQ(control.get_DataBits(), 8);
  EXPECT_EQ(control.get_StopBits(), 1);
  EXPECT_EQ(control.get_Parity(), 2);
}

TEST_F(Properties, ANewBaudrateChangesTheTextOfTheList) {
  control.put_Baudrate(12345);
  EXPECT_EQ(inside(control).Baudrate, 12345);
  EXPECT_EQ(inside(control).panel.ComboBaudrate.text(), u"12345");
  EXPECT_EQ(inside(control).panel.ComboBaudrate.state().index, -1);
}

TEST_F(Properties, TheSameBaudrateLeavesTheTypedText) {
  inside(control).panel.ComboBaudrate.type(u"4711");
  log.clear();
  control.put_Baudrate(19200);
  EXPECT_EQ(inside(control).panel.ComboBaudrate.text(), u"4711");
  EXPECT_TRUE(log.entries().empty());
}

TEST_F(Properties, MaxBaudrateIsZero) {
  EXPECT_EQ(control.get_MaxBaudrate(), 0);
  control.put_Baudrate(115200);
  EXPECT_EQ(control.get_MaxBaudrate(), 0);
}

TEST_F(Properties, LanguageIsStoredAndNothingIsReloaded) {
  control.put_Language(12);
  EXPECT_EQ(control.get_Language(), 12);
  EXPECT_TRUE(log.entries().empty());
}

TEST_F(Properties, WritingStatusStringRaisesStatusChangeEvenForTheSameText) {
  control.put_StatusString(text(u"a"));
  control.put_StatusString(text(u"a"));
  EXPECT_THAT(log.entries(), ElementsAre("StatusChange(a)", "StatusChange(a)"));
}

TEST_F(Properties, StatusTextsAreThoseOfTheLabels) {
  inside(control).panel.LblModulState.setCaption(u"m");
  inside(control).panel.LblChnState.setCaption(u"c");
  EXPECT_EQ(control.get_ModulStatusString(), text(u"m"));
  EXPECT_EQ(control.get_ChnStatusString(), text(u"c"));
}

TEST_F(Properties, DataTraficRaisesDataTransferOnEachReadAndIsFalse) {
  EXPECT_FALSE(control.get_DataTrafic());
  EXPECT_FALSE(control.get_DataTrafic());
  EXPECT_THAT(log.entries(), ElementsAre("DataTransfer", "DataTransfer"));
}

TEST_F(Properties, ReadOnlyValuesComeFromTheFields) {
  inside(control).DevAddr = 200;
  inside(control).StringsReverse = 4;
  inside(control).QuickSetupMode = 5;
  inside(control).bNFCReader = true;
  inside(control).sNFCMCURevision = u"1.4.15";
  inside(control).FwVersion = u"1.230";
  moduleWide().ManufactureLogoPath = u"/logo.png";
  moduleWide().DevicePicturePath = u"/device.png";
  EXPECT_EQ(control.get_DevAddr(), 200);
  EXPECT_EQ(control.get_StringsReverse(), 4);
  EXPECT_EQ(control.get_QuickSetupMode(), 5);
  EXPECT_EQ(control.get_NFCReader(), 1);
  EXPECT_EQ(control.get_GetNFCMCURevison(), u"1.4.15");
  EXPECT_EQ(control.get_FwVersion(), text(u"1.230"));
  EXPECT_EQ(control.get_ManufactureLogoString(), text(u"/logo.png"));
  EXPECT_EQ(control.get_DevicePictureString(), text(u"/device.png"));
  EXPECT_EQ(control.get_CommunicationObject(), moduleWide().ModbusCommObject.get());
  inside(control).bNFCReader = false;
  EXPECT_EQ(control.get_NFCReader(), 0);
}

TEST_F(Properties, ValuesFromTheHostAreConvertedToTheMembersType) {
  set("DeviceID", text(u"12"));
  EXPECT_EQ(inside(control).DeviceID, 12);
  set("Language", std::int64_t{3});
  EXPECT_EQ(inside(control).Language, 3);
  EXPECT_EQ(errorNumberOf([&] { set("DeviceID", text(u"x")); }), 13);
  EXPECT_EQ(errorNumberOf([&] { set("Language", std::int64_t{40000}); }), 6);
  EXPECT_EQ(errorNumberOf([&] { set("Baudrate", 3e9); }), 6);
  EXPECT_EQ(get("CommunicationObject"), text(u"ModbusCommObject"));
  inside(control).CommunicationObject.reset();
  EXPECT_EQ(get("CommunicationObject"), Variant{});
}

}  // namespace
}  // namespace tessara::testing
