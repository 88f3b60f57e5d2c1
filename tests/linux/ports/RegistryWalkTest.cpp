#include "Fakes.h"
#include "MockedMachine.h"
#include "linux/ports/SerialCommRegistry.h"
#include "linux/ports/SerialPorts.h"
#include "ports/RegEnum.h"

namespace tessara {
namespace {

using testing::Adapter;
using testing::cp210x;
using testing::twn4;
using Lines = std::vector<std::u16string>;

/// A registry with the USB keys alone.
class UsbOnlyRegistry : public RegistryHelper {
 public:
  explicit UsbOnlyRegistry(SerialCommRegistry& ports) : ports_(ports) {}
  [[nodiscard]] std::int32_t ValueTypeNumber() const override { return 4; }
  [[nodiscard]] std::int32_t HKeyCurrentUser() const override { return 1; }
  [[nodiscard]] std::int32_t HKeyLocalMachine() const override { return 2; }
  void SetValue(std::int32_t /*hive*/, const std::u16string& /*key*/,
                const std::u16string& /*name*/, const Variant& /*value*/,
                std::int32_t /*valueType*/) override {}
  [[nodiscard]] Variant GetValue(std::int32_t /*hive*/, const std::u16string& key,
                                 const std::u16string& name) override {
    return ports_.usbKeyValue(key, name);
  }

 private:
  SerialCommRegistry& ports_;
};

/// The port list of a control on a machine with adapters.
class RegistryWalk : public ::testing::Test {
 protected:
  Lines lines(std::int16_t showAll = 0) {
    regEnum.ShowAllComPorts = showAll;
    EnumerateComPorts(regEnum, registry, api);
    Lines all;
    for (std::int32_t i = 0; i < regEnum.PortCount; ++i) {
      all.push_back(regEnum.PortLabels[i]);
    }
    return all;
  }

  testing::MockedMachine machine;
  testing::FakePortNumbers memory;
  testing::FakePorts byHand;
  SerialPorts source{memory, byHand};
  SerialCommRegistry api{source};
  UsbOnlyRegistry registry{api};
  RegEnum regEnum;
};

const Adapter viator{.tty = "ttyACM1",
                     .driver = "cdc_acm",
                     .vendor = "2458",
                     .product = "0001",
                     .serial = "V1",
                     .socket = "5"};
const Adapter otherModem{.tty = "ttyACM2",
                         .driver = "cdc_acm",
                         .vendor = "2341",
                         .product = "0043",
                         .serial = "X1",
                         .socket = "6"};

TEST_F(RegistryWalk, AMachineWithoutPortsHasAnEmptyList) {
  EXPECT_TRUE(lines(1).empty());
}

TEST_F(RegistryWalk, AdaptersAreListedByTheirKind) {
  machine.plugIn(cp210x);
  machine.plugIn(twn4);
  machine.plugIn(viator);
  EXPECT_EQ(lines(), (Lines{u"TWN4 NFC-Adapter (COM3)", u"Bluetooth Adapter (COM4)",
                            u"USB Adapter OKT (COM5)"}));
  EXPECT_EQ(regEnum.PortNumbers[0], 3);
  EXPECT_EQ(FindPortIndex(regEnum, 5), 2);
}

TEST_F(RegistryWalk, PortsOfNoKnownKindAreListedOnRequest) {
  machine.plugIn(cp210x);
  machine.plugIn(otherModem);
  machine.addUart("ttyS0", "port", 4);
  EXPECT_EQ(lines(), Lines{u"USB Adapter OKT (COM4)"});
  EXPECT_EQ(lines(1), (Lines{u"Serial Port (COM1)", u"USB Adapter OKT (COM4)"}));
}

TEST_F(RegistryWalk, AReaderBesideAViatorIsASerialPortToo) {
  machine.plugIn(twn4);
  machine.plugIn(viator);
  EXPECT_EQ(lines(1), (Lines{u"TWN4 NFC-Adapter (COM3)", u"Serial Port (COM3)",
                             u"Bluetooth Adapter (COM4)"}));
}

TEST_F(RegistryWalk, AReaderPluggedInBetweenTwoShowingsIsListedInTheSecond) {
  machine.plugIn(cp210x);
  EXPECT_EQ(lines(), Lines{u"USB Adapter OKT (COM3)"});
  machine.plugIn(twn4);
  EXPECT_EQ(lines(), (Lines{u"USB Adapter OKT (COM3)", u"TWN4 NFC-Adapter (COM4)"}));
  machine.pullOut(cp210x);
  EXPECT_EQ(lines(), Lines{u"TWN4 NFC-Adapter (COM4)"});
  machine.plugIn(cp210x);
  EXPECT_EQ(lines(), (Lines{u"USB Adapter OKT (COM3)", u"TWN4 NFC-Adapter (COM4)"}));
}

TEST_F(RegistryWalk, TwoReadersAreTwoLines) {
  machine.plugIn(twn4);
  Adapter second = twn4;
  second.tty = "ttyACM5";
  second.serial = "T2";
  second.socket = "9";
  machine.plugIn(second);
  EXPECT_EQ(lines(), (Lines{u"TWN4 NFC-Adapter (COM3)", u"TWN4 NFC-Adapter (COM4)"}));
}

}  // namespace
}  // namespace tessara
