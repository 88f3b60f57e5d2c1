#include "FakeRegistry.h"

namespace tessara {
namespace {

using testing::Log;
using testing::port;

class Enumeration : public testing::PortsFixture {};

const std::string viatorOne =
    R"(get SYSTEM\ControlSet001\Enum\USB\VID_2458&PID_0001\1\Device Parameters|PortName)";
const std::string usbserCount = R"(get SYSTEM\CurrentControlSet\Services\usbser\enum|Count)";
const std::string openForNames = "open -2147483646 HARDWARE\\DEVICEMAP\\SERIALCOMM 0 131097";
const std::string openForData = "open -2147483646 HARDWARE\\DEVICEMAP\\SERIALCOMM 0 63";

TEST_F(Enumeration, QueriesTheSystemInAFixedOrder) {
  api.values = {port("\\Device\\Silabser0", "COM3"), port("\\Device\\USBSER000", "COM4")};
  enumerate();
  EXPECT_EQ(
      log,
      (Log{viatorOne, usbserCount, openForNames, "enum 4711 0 256", "enum 4711 1 256",
           "enum 4711 2 256", "close 4711", openForData, "query 4711 \\Device\\Silabser0 size",
           "query 4711 \\Device\\Silabser0 data 5", "close 4711", openForData,
           "query 4711 \\Device\\USBSER000 size", "query 4711 \\Device\\USBSER000 data 5",
           "close 4711", "get SYSTEM\\CurrentControlSet\\Enum\\\\Device Parameters|PortName"}));
}

TEST_F(Enumeration, KeyThatCannotBeOpenedLeavesNoPort) {
  regEnum.PortCount = 3;
  api.values = {port("\\Device\\Silabser0", "COM3")};
  api.openResult[0x20019] = 2;
  enumerate();
  EXPECT_EQ(regEnum.PortCount, 0);
  EXPECT_EQ(log, (Log{viatorOne, usbserCount, openForNames}));
}

TEST_F(Enumeration, EmptyKeyLeavesNoPort) {
  regEnum.PortCount = 3;
  enumerate();
  EXPECT_EQ(regEnum.PortCount, 0);
  EXPECT_EQ(log, (Log{viatorOne, usbserCount, openForNames, "enum 4711 0 256", "close 4711"}));
}

TEST_F(Enumeration, AnyErrorEndsTheWalkOverTheNames) {
  api.walkBreaksAt = 1;
  EXPECT_EQ(linesOf({port("\\Device\\Silabser0", "COM3"), port("\\Device\\Silabser1", "COM4")}),
            std::vector<std::u16string>{u"USB Adapter OKT (COM3)"});
}

TEST_F(Enumeration, NamesOfUnlistedPortsAreKeptToo) {
  (void)linesOf({port("\\Device\\Serial0", "COM1"), port("\\Device\\Silabser0", "COM3")});
  EXPECT_EQ(regEnum.PortDeviceNames[0], u"\\Device\\Serial0");
  EXPECT_EQ(regEnum.PortDeviceNames[1], u"\\Device\\Silabser0");
  EXPECT_EQ(regEnum.PortLabels[0], u"USB Adapter OKT (COM3)");
  EXPECT_EQ(regEnum.PortCount, 1);
}

TEST_F(Enumeration, NamesReachTheQueryUnchanged) {
  const std::string name = "\\Device\\Silabser \xC3\xBC" + std::string(200, 'x');
  EXPECT_EQ(linesOf({port(name, "COM3")}), std::vector<std::u16string>{u"USB Adapter OKT (COM3)"});
}

TEST_F(Enumeration, OldLinesBeyondTheCountStay) {
  (void)linesOf({port("\\Device\\Silabser0", "COM3"), port("\\Device\\Silabser1", "COM4")});
  (void)linesOf({port("\\Device\\Silabser0", "COM5")});
  EXPECT_EQ(regEnum.PortCount, 1);
  EXPECT_EQ(regEnum.PortLabels[1], u"USB Adapter OKT (COM4)");
  EXPECT_EQ(regEnum.PortNumbers[1], 4);
  EXPECT_EQ(regEnum.PortDeviceNames[1], u"\\Device\\Silabser1");
}

TEST_F(Enumeration, EveryKeyThatWasOpenedIsClosed) {
  (void)linesOf({port("\\Device\\Silabser0", "COM3"), port("\\Device\\Serial0", "COM1")}, 1);
  EXPECT_EQ(api.openKeys, 0);
}

TEST_F(Enumeration, FiftyOnePortsFit) {
  std::vector<testing::SerialValue> ports;
  for (int i = 1; i <= 51; ++i) {
    ports.push_back(port("\\Device\\Silabser" + std::to_string(i), "COM" + std::to_string(i)));
  }
  EXPECT_EQ(linesOf(ports).size(), 51U);
  EXPECT_EQ(regEnum.PortLabels[50], u"USB Adapter OKT (COM51)");
  EXPECT_EQ(regEnum.PortNumbers[50], 51);
}

}  // namespace
}  // namespace tessara
