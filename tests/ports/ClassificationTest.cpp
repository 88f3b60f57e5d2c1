#include <algorithm>

#include "FakeRegistry.h"

namespace tessara {
namespace {

using testing::port;
using Lines = std::vector<std::u16string>;

class Classification : public testing::PortsFixture {};

TEST_F(Classification, ProgrammingAdapterIsListedWithoutTheOption) {
  EXPECT_EQ(linesOf({port("\\Device\\SilabSer0", "COM5")}), Lines{u"USB Adapter OKT (COM5)"});
  EXPECT_EQ(numbers(), std::vector<std::int32_t>{5});
  EXPECT_EQ(linesOf({port("\\Device\\slabser", "COM6")}), Lines{u"USB Adapter OKT (COM6)"});
}

TEST_F(Classification, ViatorWithItsOwnDriverIsAHartAdapter) {
  EXPECT_EQ(linesOf({port("\\Device\\VIATOR0", "COM7")}), Lines{u"USB Hart Adapter Viator (COM7)"});
  EXPECT_EQ(numbers(), std::vector<std::int32_t>{7});
}

TEST_F(Classification, OtherPortsNeedTheSettingToBeOne) {
  EXPECT_TRUE(linesOf({port("\\Device\\Serial0", "COM1")}, 0).empty());
  EXPECT_TRUE(linesOf({port("\\Device\\Serial0", "COM1")}, -1).empty());
  EXPECT_TRUE(linesOf({port("\\Device\\Serial0", "COM1")}, 2).empty());
  EXPECT_EQ(linesOf({port("\\Device\\Serial0", "COM1")}, 1), Lines{u"Serial Port (COM1)"});
}

TEST_F(Classification, OtherPortsWithoutComInTheirNameAreNeverListed) {
  EXPECT_TRUE(linesOf({port("\\Device\\Serial0", "LPT12")}, 1).empty());
}

TEST_F(Classification, Twn4ReaderIsRecognisedByItsPort) {
  setUsbserCount(std::int64_t{1});
  addUsbser(0, u"USB\\VID_09D8&PID_0420\\A1", u"COM9");
  EXPECT_EQ(linesOf({port("\\Device\\USBSER000", "COM9")}), Lines{u"TWN4 NFC-Adapter (COM9)"});
  EXPECT_EQ(numbers(), std::vector<std::int32_t>{9});
}

TEST_F(Classification, Twn4ReadersThatShareAPortEachGiveALine) {
  setUsbserCount(std::int64_t{3});
  addUsbser(0, u"USB\\VID_09D8&PID_0420\\A1", u"COM9");
  addUsbser(1, u"USB\\VID_09D8&PID_0420\\A2", u"COM8");
  addUsbser(2, u"USB\\VID_09D8&PID_0420\\A3", u"COM9");
  EXPECT_EQ(linesOf({port("\\Device\\USBSER000", "COM9")}),
            (Lines{u"TWN4 NFC-Adapter (COM9)", u"TWN4 NFC-Adapter (COM9)"}));
}

TEST_F(Classification, Twn4PortIsComparedCaseSensitively) {
  setUsbserCount(std::int64_t{1});
  addUsbser(0, u"USB\\VID_09D8&PID_0420\\A1", u"com9");
  EXPECT_TRUE(linesOf({port("\\Device\\USBSER000", "COM9")}).empty());
}

TEST_F(Classification, Twn4PortIsReadAgainForEachPort) {
  setUsbserCount(std::int64_t{1});
  addUsbser(0, u"USB\\VID_09D8&PID_0420\\A1", u"COM9");
  (void)linesOf({port("\\Device\\USBSER000", "COM8"), port("\\Device\\USBSER001", "COM9")});
  EXPECT_EQ(std::count(log.begin(), log.end(),
                       "get SYSTEM\\CurrentControlSet\\Enum\\USB\\VID_09D8&PID_0420\\A1"
                       "\\Device Parameters|PortName"),
            2);
}

TEST_F(Classification, ViatorBehindUsbserIsABluetoothAdapter) {
  addViator(1, u"COM4");
  EXPECT_EQ(linesOf({port("\\Device\\USBSER000", "COM4")}), Lines{u"Bluetooth Adapter (COM4)"});
}

TEST_F(Classification, UnknownUsbserPortWithoutAnyViatorIsNeverListed) {
  EXPECT_TRUE(linesOf({port("\\Device\\USBSER000", "COM4")}, 1).empty());
}

TEST_F(Classification, UnknownUsbserPortIsRepeatedForEachViator) {
  addViator(1, u"COM7");
  addViator(2, u"COM8");
  EXPECT_EQ(linesOf({port("\\Device\\USBSER000", "COM4")}, 1),
            (Lines{u"Serial Port (COM4)", u"Serial Port (COM4)"}));
  EXPECT_TRUE(linesOf({port("\\Device\\USBSER000", "COM4")}, -1).empty());
}

TEST_F(Classification, Twn4ReaderIsAlsoASerialPortBesideAnUnrelatedViator) {
  setUsbserCount(std::int64_t{1});
  addUsbser(0, u"USB\\VID_09D8&PID_0420\\A1", u"COM9");
  addViator(1, u"COM4");
  EXPECT_EQ(linesOf({port("\\Device\\USBSER000", "COM9")}, 1),
            (Lines{u"TWN4 NFC-Adapter (COM9)", u"Serial Port (COM9)"}));
}

TEST_F(Classification, AFoundViatorDropsTheLastOneForLaterPorts) {
  addViator(1, u"COM4");
  addViator(2, u"COM6");
  EXPECT_EQ(linesOf({port("\\Device\\USBSER000", "COM4"), port("\\Device\\USBSER001", "COM6")}),
            Lines{u"Bluetooth Adapter (COM4)"});
  EXPECT_EQ(linesOf({port("\\Device\\USBSER000", "COM6"), port("\\Device\\USBSER001", "COM4")}),
            (Lines{u"Bluetooth Adapter (COM6)", u"Bluetooth Adapter (COM4)"}));
}

TEST_F(Classification, LinesAreInTheOrderOfTheSystem) {
  EXPECT_EQ(linesOf({port("\\Device\\Viator3", "COM12"), port("\\Device\\Serial0", "COM1"),
                     port("\\Device\\Silabser0", "COM3")},
                    1),
            (Lines{u"USB Hart Adapter Viator (COM12)", u"Serial Port (COM1)",
                   u"USB Adapter OKT (COM3)"}));
  EXPECT_EQ(numbers(), (std::vector<std::int32_t>{12, 1, 3}));
}

TEST_F(Classification, KnownAdapterNeedsNoComInThePortName) {
  EXPECT_EQ(linesOf({port("\\Device\\Silabser0", "TTY17")}), Lines{u"USB Adapter OKT (TTY17)"});
  EXPECT_EQ(numbers(), std::vector<std::int32_t>{17});
}

}  // namespace
}  // namespace tessara
