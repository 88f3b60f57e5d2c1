#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/nfc/FaultOf.h"
#include "drivers/nfc/HexBytes.h"
#include "drivers/nfc/Iso15693.h"
#include "drivers/nfc/TagCommands.h"

namespace tessara {
namespace {

using ::testing::HasSubstr;
using testing::hex;
using testing::listedUid;

/// A request as the protocol page shows it: on air, with its checksum.
struct Exchange {
  const char* name;
  AirRequest request;
  const char* air;

  friend void PrintTo(const Exchange& shown, std::ostream* stream) { *stream << shown.name; }
};

std::vector<Exchange> exchanges() {
  return {
      {"inventory", inventoryRequest(), "26 01 00 F6 0A"},
      {"password",
       {0x02, tagCommand::presentPassword, {}, Bytes(9)},
       "02 B3 02 00 00 00 00 00 00 00 00 00 4C C5"},
      {"mailboxMode",
       {0x02, tagCommand::writeConfiguration, {}, {mailboxMode, 0x01}},
       "02 A1 02 0D 01 30 73"},
      {"mailboxOn", writeControlRequest(mailboxBits::enabled), "02 AE 02 0D 01 C9 C1"},
      {"control", readControlRequest(), "02 AD 02 0D 55 DD"},
      {"write", writeMessageRequest(hex("11 22 33 44")), "02 AA 02 03 11 22 33 44 3C 60"},
      {"length", messageLengthRequest(), "02 AB 02 31 1B"},
      {"addressedLength",
       {0x22, tagCommand::readMessageLength, listedUid, {}},
       "22 AB 02 88 77 66 55 44 26 02 E0 F5 57"},
      {"wholeMessage", readMessageRequest(0, 1), "02 AC 02 00 00 4E 59"},
      {"partOfMessage", readMessageRequest(2, 3), "02 AC 02 02 02 EC 49"},
      {"readBlock", {0x02, tagCommand::readBlock, {}, {0x50}}, "02 20 50 C2 02"},
  };
}

class AirRequests : public ::testing::TestWithParam<Exchange> {};

TEST_P(AirRequests, GoOutAsListed) {
  EXPECT_EQ(withAirChecksum(encodeAirRequest(GetParam().request)), hex(GetParam().air));
}

TEST_P(AirRequests, AreUnderstoodAsListed) {
  const Bytes air = hex(GetParam().air);
  EXPECT_EQ(decodeAirRequest(withoutAirChecksum(air)), GetParam().request);
}

INSTANTIATE_TEST_SUITE_P(ProtocolPage, AirRequests, ::testing::ValuesIn(exchanges()),
                         [](const auto& test) { return std::string(test.param.name); });

struct AnswerListing {
  const char* name;
  AirAnswer answer;
  const char* air;

  friend void PrintTo(const AnswerListing& shown, std::ostream* stream) { *stream << shown.name; }
};

class AirAnswers : public ::testing::TestWithParam<AnswerListing> {};

TEST_P(AirAnswers, GoOutAsListed) {
  EXPECT_EQ(withAirChecksum(encodeAirAnswer(GetParam().answer)), hex(GetParam().air));
}

TEST_P(AirAnswers, AreUnderstoodAsListed) {
  const Bytes air = hex(GetParam().air);
  EXPECT_EQ(decodeAirAnswer(withoutAirChecksum(air)), GetParam().answer);
}

INSTANTIATE_TEST_SUITE_P(
    ProtocolPage, AirAnswers,
    ::testing::Values(
        AnswerListing{"inventory",
                      {0x00, hex("00 88 77 66 55 44 26 02 E0")},
                      "00 00 88 77 66 55 44 26 02 E0 08 FA"},
        AnswerListing{"done", {0x00, {}}, "00 78 F0"},
        AnswerListing{"modulePut", {0x00, {0x43}}, "00 43 D8 7F"},
        AnswerListing{"readerPut", {0x00, {0x85}}, "00 85 E2 DC"},
        AnswerListing{"length", {0x00, {0x05}}, "00 05 EA 58"},
        AnswerListing{"message", {0x00, hex("48 45 4C 4C 4F 21")}, "00 48 45 4C 4C 4F 21 FC 9F"},
        AnswerListing{"part", {0x00, hex("4C 4C 4F")}, "00 4C 4C 4F 3E 0A"},
        AnswerListing{"refusal", airRefusal(0x10), "01 10 1E 06"},
        AnswerListing{"capturedInventory",
                      {0x00, hex("00 02 28 E0 6D 58 01 04 E0")},
                      "00 00 02 28 E0 6D 58 01 04 E0 D0 60"},
        AnswerListing{"capturedInformation",
                      {0x00, hex("0F 3F 74 88 41 CE 59 02 E0 FF 00 7F 03 5A")},
                      "00 0F 3F 74 88 41 CE 59 02 E0 FF 00 7F 03 5A 10 70"},
        AnswerListing{"capturedBlock", {0x00, hex("00 00 00 05")}, "00 00 00 00 05 DA 98"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(AirChecksum, OfTheNineDigitsIs906E) {
  const std::string digits = "123456789";
  EXPECT_EQ(airChecksum(Bytes(digits.begin(), digits.end())), 0x906E);
}

TEST(AirChecksum, ThatIsWrongIsDamage) {
  const auto fault = faultOf([] { (void)withoutAirChecksum(hex("00 43 D8 7E")); });
  EXPECT_EQ(fault.kind, NfcFaultKind::Damage);
  EXPECT_THAT(fault.text, HasSubstr("checksum"));
}

TEST(AirChecksum, ThatIsMissingIsDamage) {
  EXPECT_EQ(faultOf([] { (void)withoutAirChecksum(hex("00")); }).kind, NfcFaultKind::Damage);
}

TEST(TagNumber, HasItsLeastSignificantByteFirstInAnInventory) {
  EXPECT_EQ(uidOf(hex("00 88 77 66 55 44 26 02 E0")), listedUid);
  EXPECT_EQ(faultOf([] { (void)uidOf(hex("00 88")); }).kind, NfcFaultKind::Damage);
}

TEST(AirRequest, OfAnotherMakerIsDamage) {
  EXPECT_EQ(faultOf([] { (void)decodeAirRequest(hex("02 AD 07 0D")); }).kind, NfcFaultKind::Damage);
}

TEST(AirRequest, ThatBrokeOffIsDamage) {
  for (const char* cut : {"", "02", "02 AD", "22 AB 02 88 77"}) {
    EXPECT_EQ(faultOf([&] { (void)decodeAirRequest(hex(cut)); }).kind, NfcFaultKind::Damage) << cut;
  }
}

TEST(AirAnswer, HoldsItsData) {
  EXPECT_EQ(dataOf(AirAnswer{0x00, {0x43}}), (Bytes{0x43}));
}

TEST(AirAnswer, ThatIsARefusalSaysWhy) {
  const auto fault = faultOf([] { (void)dataOf(airRefusal(0x10)); });
  EXPECT_EQ(fault.kind, NfcFaultKind::TagRefusal);
  EXPECT_EQ(fault.text, "the tag refuses with error 10: block not available");
  EXPECT_EQ(faultOf([] { (void)dataOf(airRefusal(0x77)); }).text,
            "the tag refuses with error 77: unknown code");
  EXPECT_EQ(faultOf([] { (void)dataOf(AirAnswer{0x01, {}}); }).kind, NfcFaultKind::TagRefusal);
}

}  // namespace
}  // namespace tessara
