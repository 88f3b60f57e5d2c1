#include <gtest/gtest.h>

#include "Fakes.h"
#include "linux/ports/NumberAssignment.h"

namespace tessara {
namespace {

using Numbers = std::vector<std::int16_t>;

class NumberAssignment : public ::testing::Test {
 protected:
  Numbers assign(const std::vector<SerialDevice>& devices,
                 const std::set<std::int16_t>& claimed = {}) {
    return assignNumbers(devices, claimed, memory);
  }

  static SerialDevice adapter(const std::string& serial, const std::string& socket) {
    return {.name = "ttyUSB0",
            .node = "/dev/ttyUSB0",
            .driver = "cp210x",
            .usb = UsbIdentity{0x10C4, 0xEA60, serial, 0},
            .usbPath = "/devices/pci0000:00/0000:00:14.0/usb1/1-" + socket};
  }

  static SerialDevice uart(const std::string& name) {
    return {.name = name, .node = "/dev/" + name, .driver = "serial", .uartType = "4"};
  }

  testing::FakePortNumbers memory;
};

TEST_F(NumberAssignment, NewAdaptersGetTheLowestNumbersFromThree) {
  EXPECT_EQ(assign({adapter("A", "1"), adapter("B", "2")}), (Numbers{3, 4}));
  EXPECT_EQ(memory.known.at(3), deviceKeyOf(adapter("A", "1")));
  EXPECT_EQ(memory.known.at(4), deviceKeyOf(adapter("B", "2")));
}

TEST_F(NumberAssignment, UartsOfTheMachineGetTheLowestNumbersFromOne) {
  EXPECT_EQ(assign({uart("ttyS0"), uart("ttyS1"), uart("ttyS4"), adapter("A", "1")}),
            (Numbers{1, 2, 3, 4}));
}

TEST_F(NumberAssignment, ADeviceKeepsItsNumberWhateverElseIsPluggedIn) {
  (void)assign({adapter("A", "1"), adapter("B", "2"), uart("ttyS0")});
  EXPECT_EQ(assign({adapter("B", "2")}), Numbers{4});
  EXPECT_EQ(assign({uart("ttyS0"), adapter("C", "3"), adapter("B", "2"), adapter("A", "1")}),
            (Numbers{1, 5, 4, 3}));
}

TEST_F(NumberAssignment, AKnownDeviceIsNotStoredAgain) {
  (void)assign({adapter("A", "1"), uart("ttyS0")});
  EXPECT_EQ(memory.stores, 2);
  (void)assign({adapter("A", "1"), uart("ttyS0")});
  EXPECT_EQ(memory.stores, 2);
}

TEST_F(NumberAssignment, TheNumberOfAnUnpluggedDeviceIsNotAssignedAgain) {
  (void)assign({adapter("A", "1")});
  EXPECT_EQ(assign({adapter("B", "1")}), Numbers{4});
}

TEST_F(NumberAssignment, ASerialNumberIsRecognisedInAnySocket) {
  (void)assign({adapter("A", "1"), adapter("B", "2")});
  EXPECT_EQ(assign({adapter("A", "2"), adapter("B", "1")}), (Numbers{3, 4}));
  EXPECT_EQ(memory.known.at(3), deviceKeyOf(adapter("A", "2")));
  EXPECT_EQ(memory.known.size(), 2U);
}

TEST_F(NumberAssignment, WithoutASerialNumberTheNumberBelongsToTheSocket) {
  EXPECT_EQ(assign({adapter("", "1"), adapter("", "2")}), (Numbers{3, 4}));
  EXPECT_EQ(assign({adapter("", "2")}), Numbers{4});
  EXPECT_EQ(assign({adapter("", "3")}), Numbers{5});
  EXPECT_EQ(assign({adapter("", "1")}), Numbers{3});
}

TEST_F(NumberAssignment, AdaptersWithTheSameSerialNumberAreDistinguishedByTheirSockets) {
  EXPECT_EQ(assign({adapter("0001", "1")}), Numbers{3});
  EXPECT_EQ(assign({adapter("0001", "2"), adapter("0001", "1")}), (Numbers{4, 3}));
  EXPECT_EQ(assign({adapter("0001", "2")}), Numbers{4});
  EXPECT_EQ(assign({adapter("0001", "1"), adapter("0001", "2")}), (Numbers{3, 4}));
}

TEST_F(NumberAssignment, OneOfSeveralTwinsThatMovedTakesANumberThatNoTwinUses) {
  (void)assign({adapter("0001", "1"), adapter("0001", "2")});
  EXPECT_EQ(assign({adapter("0001", "3"), adapter("0001", "2")}), (Numbers{3, 4}));
}

TEST_F(NumberAssignment, ClaimedNumbersAreNotAssigned) {
  EXPECT_EQ(assign({adapter("A", "1"), uart("ttyS0")}, {1, 3, 4}), (Numbers{5, 2}));
}

TEST_F(NumberAssignment, ADeviceWhoseNumberIsClaimedHasAnotherForThatTime) {
  (void)assign({adapter("A", "1"), adapter("B", "2")});
  const int before = memory.stores;
  EXPECT_EQ(assign({adapter("A", "1"), adapter("B", "2")}, {3}), (Numbers{5, 4}));
  EXPECT_EQ(memory.stores, before);
  EXPECT_EQ(assign({adapter("A", "1"), adapter("B", "2")}), (Numbers{3, 4}));
}

TEST_F(NumberAssignment, ANewDeviceDoesNotGetTheNumberOfADeviceWhoseNumberIsClaimed) {
  (void)assign({adapter("A", "1")});
  EXPECT_EQ(assign({adapter("A", "1")}, {3}), Numbers{4});
  EXPECT_EQ(assign({adapter("C", "2"), adapter("A", "1")}, {3}), (Numbers{5, 4}));
}

TEST_F(NumberAssignment, TheNumberOfTheUsbReaderIsNeverAssigned) {
  for (std::int16_t number = 1; number < 999; ++number) {
    memory.known[number] = {"gone", ""};
  }
  EXPECT_EQ(assign({adapter("A", "1")}), Numbers{1000});
}

TEST_F(NumberAssignment, ADeviceForWhichNoNumberIsLeftGetsNone) {
  for (std::int32_t number = 1; number <= 32767; ++number) {
    memory.known[static_cast<std::int16_t>(number)] = {"gone", ""};
  }
  EXPECT_EQ(assign({adapter("A", "1")}), Numbers{0});
  EXPECT_EQ(memory.stores, 0);
}

TEST_F(NumberAssignment, TwoDevicesWithOneKeyHaveTwoNumbers) {
  EXPECT_EQ(assign({adapter("", "1"), adapter("", "1")}), (Numbers{3, 4}));
  EXPECT_EQ(assign({adapter("", "1"), adapter("", "1")}), (Numbers{3, 4}));
}

}  // namespace
}  // namespace tessara
