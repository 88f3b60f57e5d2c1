#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/nfc/FaultOf.h"
#include "drivers/nfc/HexBytes.h"
#include "drivers/nfc/TagCommands.h"
#include "drivers/nfc/Twn4.h"

namespace tessara {
namespace {

using ::testing::HasSubstr;
using testing::hex;
using testing::listedUid;

struct Line {
  const char* name;
  Bytes request;
  const char* line;

  friend void PrintTo(const Line& shown, std::ostream* stream) { *stream << shown.name; }
};

std::vector<Line> lines() {
  const auto air = [](const AirRequest& request) {
    return twn4::airRequest(encodeAirRequest(request));
  };
  return {
      {"version", twn4::versionRequest(), "0004FF\r"},
      {"onlyIso15693", twn4::tagTypesRequest(), "05020000000004000000\r"},
      {"search", twn4::searchRequest(), "050010\r"},
      {"fieldOff", twn4::fieldOffRequest(), "0501\r"},
      {"readBlock", air({0x02, tagCommand::readBlock, {}, {0x05}}), "0D0002200105FF\r"},
      {"writeBlock", air({0x42, 0x21, {}, hex("05 DE AD BE EF")}), "0D0042210505DEADBEEFFF\r"},
      {"control", air(readControlRequest()), "0D0002AD02020DFF\r"},
      {"mailboxOn", air(writeControlRequest(mailboxBits::enabled)), "0D0002AE03020D01FF\r"},
      {"length", air(messageLengthRequest()), "0D0002AB0102FF\r"},
      {"message", air(readMessageRequest(0, 1)), "0D0002AC03020000FF\r"},
      {"write", air(writeMessageRequest(hex("11 22 33 44"))), "0D0002AA06020311223344FF\r"},
  };
}

class Twn4Lines : public ::testing::TestWithParam<Line> {};

TEST_P(Twn4Lines, GoOutAsListed) {
  EXPECT_EQ(twn4::lineOf(GetParam().request), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(ProtocolPage, Twn4Lines, ::testing::ValuesIn(lines()),
                         [](const auto& test) { return std::string(test.param.name); });

Bytes resultsIn(const char* line) {
  const Bytes answer = bytesOfHex(line);
  const auto results = twn4::resultsOf(answer);
  return {results.begin(), results.end()};
}

TEST(Twn4Answers, HoldTheVersion) {
  EXPECT_EQ(twn4::versionOf(resultsIn("001A54574E342F42312E30362F434346342E35312F505253312E3034")),
            "TWN4/B1.06/CCF4.51/PRS1.04");
}

TEST(Twn4Answers, ShowSimpleProtocolByTheVersion) {
  EXPECT_TRUE(twn4::isSimpleProtocol("TWN4/B1.06/CCF4.51/PRS1.04"));
  EXPECT_FALSE(twn4::isSimpleProtocol("TWN4/B1.06/CCF4.51/STD1.04"));
  EXPECT_FALSE(twn4::isSimpleProtocol("TWN3/B1.06/PRS1.04"));
  EXPECT_FALSE(twn4::isSimpleProtocol(""));
}

TEST(Twn4Answers, HoldTheTagThatASearchFound) {
  EXPECT_EQ(twn4::tagOf(resultsIn("0001824008E002264455667788")), listedUid);
  EXPECT_EQ(twn4::tagOf(resultsIn("0000")), std::nullopt);
}

TEST(Twn4Answers, ShowThatTheTagIsNotAModules) {
  const auto fault = faultOf([] { (void)twn4::tagOf(resultsIn("000180200404A1B2C3")); });
  EXPECT_EQ(fault.kind, NfcFaultKind::TagRefusal);
  EXPECT_THAT(fault.text, HasSubstr("not a module's, but of kind 80"));
}

TEST(Twn4Answers, HoldTheDataOfTheTag) {
  EXPECT_EQ(twn4::tagDataOf(resultsIn("000104DEADBEEF")), hex("DE AD BE EF"));
  EXPECT_EQ(twn4::tagDataOf(resultsIn("00010143")), hex("43"));
  EXPECT_EQ(twn4::tagDataOf(resultsIn("00010105")), hex("05"));
  EXPECT_EQ(twn4::tagDataOf(resultsIn("00010648454C4C4F21")), hex("48 45 4C 4C 4F 21"));
  EXPECT_EQ(twn4::tagDataOf(resultsIn("000100")), Bytes());
}

TEST(Twn4Answers, MayReportAFailureWithoutACause) {
  EXPECT_EQ(twn4::tagDataOf(resultsIn("0000")), std::nullopt);
}

TEST(Twn4Answers, MayCarryTheErrorCodeOfTheTag) {
  const auto fault = faultOf([] { (void)twn4::tagDataOf(resultsIn("00000110")); });
  EXPECT_EQ(fault.kind, NfcFaultKind::TagRefusal);
  EXPECT_THAT(fault.text, HasSubstr("block not available"));
}

struct Status {
  const char* line;
  const char* text;

  friend void PrintTo(const Status& shown, std::ostream* stream) { *stream << shown.text; }
};

class Twn4Status : public ::testing::TestWithParam<Status> {};

TEST_P(Twn4Status, SaysWhyACallFailed) {
  const auto fault = faultOf([] { (void)resultsIn(GetParam().line); });
  EXPECT_EQ(fault.kind, NfcFaultKind::ReaderRefusal);
  EXPECT_THAT(fault.text, HasSubstr(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(ProtocolPage, Twn4Status,
                         ::testing::Values(Status{"01", "error 1: unknown function"},
                                           Status{"02", "error 2: missing parameter"},
                                           Status{"03", "error 3: unused parameters"},
                                           Status{"04", "error 4: invalid function"},
                                           Status{"05", "error 5: parser error"},
                                           Status{"99", "error 153: unknown code"}),
                         [](const auto& test) { return "Status" + std::string(test.param.line); });

TEST(Twn4Answers, ThatAreMalformedAreDamage) {
  EXPECT_EQ(faultOf([] { (void)twn4::resultsOf({}); }).kind, NfcFaultKind::Damage);
  for (const char* line :
       {"00", "000182", "0001824008E0022644", "00018240FF", "0001823808E002264455667788"}) {
    EXPECT_EQ(faultOf([&] { (void)twn4::tagOf(resultsIn(line)); }).kind, NfcFaultKind::Damage)
        << line;
  }
  for (const char* line : {"00", "0001", "000102AA", "000101AABB"}) {
    EXPECT_EQ(faultOf([&] { (void)twn4::tagDataOf(resultsIn(line)); }).kind, NfcFaultKind::Damage)
        << line;
  }
  EXPECT_EQ(faultOf([] { (void)twn4::versionOf(resultsIn("000554")); }).kind, NfcFaultKind::Damage);
}

TEST(HexText, AcceptsBothCasesAndWritesUpperCase) {
  EXPECT_EQ(bytesOfHex("dEaD"), (Bytes{0xDE, 0xAD}));
  EXPECT_EQ(hexText(Bytes{0xDE, 0xAD}), "DEAD");
}

TEST(HexText, ThatIsInvalidIsDamage) {
  for (const char* text : {"0", "0G", "00 1", "-1", "000"}) {
    EXPECT_EQ(faultOf([&] { (void)bytesOfHex(text); }).kind, NfcFaultKind::Damage) << text;
  }
}

}  // namespace
}  // namespace tessara
