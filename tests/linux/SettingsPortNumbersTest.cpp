#include <gmock/gmock.h>

#include "SettingsFolder.h"
#include "linux/SettingsPortNumbers.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

using SettingsPortNumbersTest = SettingsFolder;

const DeviceKey adapter{"10c4:ea60:0001:00", "pci0000:00/0000:00:14.0/usb-2.1"};
const DeviceKey uart{"ttyS0", ""};

TEST_F(SettingsPortNumbersTest, AreNoneAtFirst) {
  EXPECT_THAT(SettingsPortNumbers().load(), IsEmpty());
}

TEST_F(SettingsPortNumbersTest, AreThereAgainAtTheNextStart) {
  {
    SettingsPortNumbers numbers;
    numbers.store(3, adapter);
    numbers.store(1, uart);
  }
  EXPECT_THAT(SettingsPortNumbers().load(), ElementsAre(Pair(1, uart), Pair(3, adapter)));
  EXPECT_EQ(bytesOf(userFile()),
            "[PortNumbers]\nCOM3=10c4:ea60:0001:00 pci0000:00/0000:00:14.0/usb-2.1\n"
            "COM1=ttyS0\n");
}

TEST_F(SettingsPortNumbersTest, PassToAnotherDevice) {
  SettingsPortNumbers numbers;
  numbers.store(3, uart);
  numbers.store(3, adapter);
  EXPECT_THAT(numbers.load(), ElementsAre(Pair(3, adapter)));
}

TEST_F(SettingsPortNumbersTest, IgnoreAndKeepOtherSettings) {
  put(userFile(), "[PortNumbers]\nCOM3=ttyS0\nCOM4=\nCOM5=@Invalid()\nCOM999=x\nLPT1=y\n");
  SettingsPortNumbers numbers;
  EXPECT_THAT(numbers.load(), ElementsAre(Pair(3, uart)));
  numbers.store(6, adapter);
  EXPECT_NE(bytesOf(userFile()).find("LPT1=y\n"), std::string::npos);
}

TEST_F(SettingsPortNumbersTest, AreRememberedWhereTheyCannotBeWritten) {
  put(folder() / "user" / "Orvane", "a file where a folder should be");
  SettingsPortNumbers numbers;
  numbers.store(3, adapter);
  EXPECT_THAT(numbers.load(), ElementsAre(Pair(3, adapter)));
}

}  // namespace
}  // namespace tessara::testing
