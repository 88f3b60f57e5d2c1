#include <utility>

#include "FakeRegistry.h"

namespace tessara {
namespace {

using testing::port;
using testing::SerialValue;
using Lines = std::vector<std::u16string>;

class Errors : public testing::PortsFixture {
 protected:
  std::int32_t errorOfEnumeration(std::vector<SerialValue> values) {
    api.values = std::move(values);
    return errorOf([this] { enumerate(); });
  }
};

TEST_F(Errors, AnEleventhViatorIsASubscriptError) {
  for (int n = 1; n <= 11; ++n) {
    addViator(n, u"COM" + decimalText(n));
  }
  EXPECT_EQ(errorOfEnumeration({port("USBSER0", "COM1")}), 9);
  EXPECT_EQ(regEnum.PortCount, 0);
}

TEST_F(Errors, ATwelfthTwn4ReaderIsASubscriptError) {
  setUsbserCount(std::int64_t{12});
  for (int j = 0; j < 12; ++j) {
    addUsbser(j, u"USB\\VID_09D8&PID_0420\\" + decimalText(j), u"COM9");
  }
  EXPECT_EQ(errorOfEnumeration({port("USBSER0", "COM9")}), 9);
}

TEST_F(Errors, FiftyTwoNamesAreASubscriptErrorEvenIfNoneIsListed) {
  std::vector<SerialValue> values(52);
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = port("\\Device\\Serial" + std::to_string(i), "COM1");
  }
  EXPECT_EQ(errorOfEnumeration(values), 9);
  EXPECT_EQ(regEnum.PortDeviceNames[50], u"\\Device\\Serial50");
  EXPECT_EQ(regEnum.PortCount, 0);
  EXPECT_EQ(api.openKeys, 0);
}

TEST_F(Errors, AFiftySecondLineIsASubscriptErrorAndTheLinesStay) {
  for (int n = 1; n <= 10; ++n) {
    addViator(n, u"COM" + decimalText(90 + n));
  }
  regEnum.ShowAllComPorts = 1;
  std::vector<SerialValue> values;
  for (int i = 1; i <= 6; ++i) {
    values.push_back(port("USBSER" + std::to_string(i), "COM" + std::to_string(i)));
  }
  EXPECT_EQ(errorOfEnumeration(values), 9);
  EXPECT_EQ(regEnum.PortCount, 51);
  EXPECT_EQ(regEnum.PortLabels[50], u"Serial Port (COM6)");
}

TEST_F(Errors, APortWithoutANumberIsATypeMismatchAndEarlierLinesStay) {
  for (const auto* name : {"COMx", "COM", "COM1x"}) {
    EXPECT_EQ(errorOfEnumeration(
                  {port("Silabser0", "COM3"), port("Silabser1", name), port("Silabser2", "COM5")}),
              13);
    EXPECT_EQ(lines(), Lines{u"USB Adapter OKT (COM3)"});
  }
}

TEST_F(Errors, AFailedAppendChangesNoEntry) {
  (void)linesOf({port("Silabser0", "COM3")});
  EXPECT_EQ(errorOfEnumeration({port("Silabser0", "COMx")}), 13);
  EXPECT_EQ(regEnum.PortNumbers[0], 3);
  EXPECT_EQ(regEnum.PortLabels[0], u"USB Adapter OKT (COM3)");
}

TEST_F(Errors, ANumberBeyond32BitsIsAnOverflow) {
  EXPECT_EQ(errorOfEnumeration({port("Silabser0", "COM2147483648")}), 6);
}

TEST_F(Errors, APortOfAnotherValueTypeReadsEmptyAndFailsForAKnownClass) {
  EXPECT_EQ(errorOfEnumeration({{"Silabser0", "COM3", 3}}), 5);
  EXPECT_EQ(regEnum.PortCount, 0);
}

TEST_F(Errors, APortOfAnotherValueTypeIsSkippedAmongOtherPorts) {
  EXPECT_EQ(linesOf({{"Serial0", "COM3", 3}, port("Silabser0", "COM4")}, 1),
            Lines{u"USB Adapter OKT (COM4)"});
}

TEST_F(Errors, AnEmptyPortBehindUsbserMatchesTheEmptyTwn4Path) {
  EXPECT_EQ(errorOfEnumeration({{"USBSER0", "COM3", 3}}), 5);
}

TEST_F(Errors, AnAccountThatMayNotChangeTheKeyEndsInAnInvalidCall) {
  api.openResult[0x3F] = 5;
  EXPECT_EQ(errorOfEnumeration({port("Silabser0", "COM3")}), 5);
  EXPECT_EQ(regEnum.PortCount, 0);
  EXPECT_EQ(regEnum.PortDeviceNames[0], u"Silabser0");
}

TEST_F(Errors, ACountThatIsNotANumberIsATypeMismatch) {
  setUsbserCount(std::u16string(u"many"));
  EXPECT_EQ(errorOfEnumeration({port("Silabser0", "COM3")}), 13);
}

TEST_F(Errors, AnErrorOfTheSettingsPassesToTheCallerAndEarlierLinesStay) {
  setUsbserCount(std::int64_t{2});
  addUsbser(0, u"USB\\VID_09D8&PID_0420\\A1", u"COM9");
  addUsbser(1, u"USB\\VID_09D8&PID_0420\\A2", u"COM8");
  registry.broken =
      R"(SYSTEM\CurrentControlSet\Enum\USB\VID_09D8&PID_0420\A2\Device Parameters|PortName)";
  EXPECT_EQ(errorOfEnumeration({port("USBSER0", "COM9")}), 13);
  EXPECT_EQ(lines(), Lines{u"TWN4 NFC-Adapter (COM9)"});
}

}  // namespace
}  // namespace tessara
