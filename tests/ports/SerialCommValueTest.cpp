#include "FakeRegistry.h"

namespace tessara {
namespace {

using testing::Log;
using testing::port;

class SerialCommValue : public testing::PortsFixture {
 protected:
  std::u16string valueOf(const std::string& data, std::uint32_t type) {
    api.values = {{"Name", data, type}};
    return GetSerialCommValue(api, u"Name");
  }
};

TEST_F(SerialCommValue, OpensForChangeAsksForTheSizeReadsAndCloses) {
  api.values = {port("Name", "COM12")};
  EXPECT_EQ(GetSerialCommValue(api, u"Name"), u"COM12");
  EXPECT_EQ(log, (Log{"open -2147483646 HARDWARE\\DEVICEMAP\\SERIALCOMM 0 63",
                      "query 4711 Name size", "query 4711 Name data 6", "close 4711"}));
}

TEST_F(SerialCommValue, TheFinalZeroIsCutOffFromSizeFiveOn) {
  EXPECT_EQ(valueOf({"COM3\0", 5}, 1), u"COM3");
  EXPECT_EQ(valueOf({"COM3x", 5}, 1), u"COM3");
}

TEST_F(SerialCommValue, TextOfSizeFourOrLessKeepsItsFinalZero) {
  EXPECT_EQ(valueOf({"CO1\0", 4}, 1), std::u16string(u"CO1\0", 4));
  EXPECT_EQ(valueOf({"C\0", 2}, 1), std::u16string(u"C\0", 2));
  EXPECT_EQ(valueOf("", 1), u"");
}

TEST_F(SerialCommValue, ANumberIsGivenInSignedDecimal) {
  EXPECT_EQ(valueOf({"\x2A\x01\0\0", 4}, 4), u"298");
  EXPECT_EQ(valueOf("\xFF\xFF\xFF\xFF", 4), u"-1");
}

TEST_F(SerialCommValue, AnyOtherTypeIsEmptyAndItsDataAreNotRead) {
  EXPECT_EQ(valueOf({"COM3\0", 5}, 2), u"");
  EXPECT_EQ(log.back(), "close 4711");
  EXPECT_EQ(log.size(), 3U);
}

TEST_F(SerialCommValue, DataThatCannotBeReadAreEmpty) {
  api.dataQueryResult = 234;
  EXPECT_EQ(valueOf({"COM3\0", 5}, 1), u"");
  EXPECT_EQ(valueOf({"\x2A\0\0\0", 4}, 4), u"");
  EXPECT_EQ(api.openKeys, 0);
}

TEST_F(SerialCommValue, AValueThatCannotBeQueriedIsAnInvalidCall) {
  EXPECT_EQ(errorOf([this] { (void)GetSerialCommValue(api, u"Name"); }), 5);
  api.sizeQueryResult = 5;
  EXPECT_EQ(errorOf([this] { (void)valueOf({"COM3\0", 5}, 1); }), 5);
  EXPECT_EQ(api.openKeys, 0);
}

TEST_F(SerialCommValue, TheResultOfOpeningIsIgnored) {
  api.openResult[0x3F] = 5;
  api.handleInSpiteOfError = true;
  EXPECT_EQ(valueOf({"COM3\0", 5}, 1), u"COM3");
  api.handleInSpiteOfError = false;
  log.clear();
  EXPECT_EQ(errorOf([this] { (void)valueOf({"COM3\0", 5}, 1); }), 5);
  EXPECT_EQ(log.size(), 2U);
}

}  // namespace
}  // namespace tessara
