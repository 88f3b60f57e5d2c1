#include <sstream>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "PortList.h"

namespace tessara {
namespace {

using Json = nlohmann::json;

const KnownPort listedAdapter{3, R"(\Device\Silabser0)", "/dev/ttyUSB0", "cp210x",
                              UsbIdentity{0x10C4, 0xEA60, "0001", 0}};
const KnownPort reader{12, R"(\Device\USBSER000)", "/dev/ttyACM0", "cdc_acm",
                       UsbIdentity{0x09D8, 0x0420, "", 2}};
const KnownPort uart{1, R"(\Device\Serial0)", "/dev/ttyS0", "port"};
const KnownPort byHand{9, R"(\Device\Silabser9)", "/dev/pts/5"};

RegEnum listOf(const std::vector<std::pair<std::u16string, std::int32_t>>& lines) {
  RegEnum list;
  for (const auto& [label, number] : lines) {
    list.PortLabels[list.PortCount] = label;
    list.PortNumbers[list.PortCount] = number;
    ++list.PortCount;
  }
  return list;
}

PortState stateOf(const std::string& node) {
  if (node == "/dev/ttyS0") {
    return PortState::Denied;
  }
  return node == "/dev/ttyUSB0" ? PortState::InUse : PortState::Free;
}

Json jsonOf(const std::vector<PortLine>& lines, const std::vector<std::string>& problems = {}) {
  std::ostringstream out;
  printPortJson(out, lines, problems);
  return Json::parse(out.str());
}

std::vector<PortLine> someLines() {
  return portLines(listOf({{u"USB Adapter OKT (COM3)", 3}, {u"TWN4 NFC-Adapter (COM12)", 12}}),
                   true, {uart, listedAdapter, reader, byHand}, stateOf);
}

TEST(PortList, HasTheLinesOfTheControlThenTheReaderThenTheOtherPorts) {
  const std::vector<PortLine> expected{
      {"USB Adapter OKT (COM3)", "COM3", listedAdapter, PortState::InUse},
      {"TWN4 NFC-Adapter (COM12)", "COM12", reader, PortState::Free},
      {"NFC-USB-ZORVEN-ADAPTER", "NFC", std::nullopt, PortState::Free},
      {"", "COM1", uart, PortState::Denied},
      {"", "COM9", byHand, PortState::Free}};
  EXPECT_EQ(someLines(), expected);
}

TEST(PortList, KeepsRepeatedLines) {
  const auto lines = portLines(listOf({{u"Serial Port (COM9)", 9}, {u"Serial Port (COM9)", 9}}),
                               false, {byHand}, stateOf);
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0], lines[1]);
}

TEST(PortList, APortThatIsGoneMeanwhileIsAbsent) {
  const auto lines = portLines(listOf({{u"USB Adapter OKT (COM3)", 3}}), false, {}, stateOf);
  EXPECT_EQ(
      lines,
      (std::vector<PortLine>{{"USB Adapter OKT (COM3)", "COM3", std::nullopt, PortState::Absent}}));
}

TEST(PortList, TheTableIsAlignedAndTellsOfPortsThatAreNotListed) {
  std::ostringstream out;
  printPortTable(out, someLines(), {});
  EXPECT_EQ(out.str(),
            "USB Adapter OKT (COM3)    in use  /dev/ttyUSB0  cp210x   10C4:EA60 0001\n"
            "TWN4 NFC-Adapter (COM12)  free    /dev/ttyACM0  cdc_acm  09D8:0420\n"
            "NFC-USB-ZORVEN-ADAPTER    free\n"
            "\n"
            "Not in the list of ports (the setting ShowAllComPorts lists ports with unrecognised "
            "adapters too):\n"
            "COM1  denied  /dev/ttyS0  port\n"
            "COM9  free    /dev/pts/5\n");
}

TEST(PortList, TheTableOfAMachineWithoutPortsSaysSo) {
  std::ostringstream out;
  printPortTable(out, {}, {});
  EXPECT_EQ(out.str(), "There is no port on which a module could be.\n");
}

TEST(PortList, TheTableSaysSoBesidePortsOfNoKnownKindToo) {
  std::ostringstream out;
  printPortTable(out, portLines(listOf({}), false, {byHand}, stateOf), {});
  EXPECT_EQ(out.str().find("There is no port on which a module could be.\n\nNot in the list"), 0U);
}

TEST(PortList, TheJsonIsOneObjectWithEveryKeyInEveryLine) {
  const Json adapterJson{
      {"label", "USB Adapter OKT (COM3)"},
      {"port", "COM3"},
      {"state", "in use"},
      {"deviceName", R"(\Device\Silabser0)"},
      {"device", "/dev/ttyUSB0"},
      {"driver", "cp210x"},
      {"usb", {{"vendor", "10C4"}, {"product", "EA60"}, {"serial", "0001"}, {"interface", 0}}}};
  const Json usbReaderJson{{"label", "NFC-USB-ZORVEN-ADAPTER"},
                           {"port", "NFC"},
                           {"state", "free"},
                           {"deviceName", nullptr},
                           {"device", nullptr},
                           {"driver", nullptr},
                           {"usb", nullptr}};
  const Json json = jsonOf(someLines());
  ASSERT_EQ(json.size(), 2U);
  const Json& ports = json["ports"];
  ASSERT_EQ(ports.size(), 5U);
  EXPECT_EQ(ports[0], adapterJson);
  EXPECT_EQ(ports[1]["usb"]["serial"], nullptr);
  EXPECT_EQ(ports[1]["usb"]["interface"], 2);
  EXPECT_EQ(ports[2], usbReaderJson);
  EXPECT_EQ(ports[4]["label"], nullptr);
  EXPECT_EQ(ports[4]["driver"], nullptr);
}

TEST(PortList, TheJsonOfAMachineWithoutPortsHoldsEmptyArrays) {
  EXPECT_EQ(jsonOf({}), (Json{{"ports", Json::array()}, {"problems", Json::array()}}));
}

TEST(PortList, ProblemsStandBelowTheTableAndInTheJson) {
  const std::vector<std::string> problems{"COM0 is not a port", "COM\xFF neither"};
  std::ostringstream table;
  printPortTable(table, {}, problems);
  EXPECT_EQ(table.str(),
            "There is no port on which a module could be.\n\n"
            "Problems:\nCOM0 is not a port\nCOM\xFF neither\n");
  EXPECT_EQ(jsonOf({}, problems)["problems"],
            (Json{"COM0 is not a port", "COM\xEF\xBF\xBD neither"}));
}

TEST(PortList, ASerialNumberThatIsNoTextDoesNotBreakTheJson) {
  KnownPort odd = listedAdapter;
  odd.usb->serial = "A\xFF";
  const Json json =
      jsonOf(portLines(listOf({{u"USB Adapter OKT (COM3)", 3}}), false, {odd}, stateOf));
  EXPECT_EQ(json["ports"][0]["usb"]["serial"], "A\xEF\xBF\xBD");
}

}  // namespace
}  // namespace tessara
