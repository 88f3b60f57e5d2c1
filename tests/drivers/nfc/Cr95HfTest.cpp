#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/nfc/Cr95Hf.h"
#include "drivers/nfc/FaultOf.h"
#include "drivers/nfc/HexBytes.h"
#include "drivers/nfc/TagCommands.h"

namespace tessara {
namespace {

using cr95hf::Answer;
using cr95hf::ReportId;
using ::testing::HasSubstr;
using testing::hex;

/// The listed bytes, and zeros up to the length of a report.
Bytes padded(const std::string& listing) {
  Bytes bytes = hex(listing);
  bytes.resize(64);
  return bytes;
}

Bytes bytesOf(const cr95hf::Report& report) {
  return {report.begin(), report.end()};
}

TEST(Cr95HfReports, GoToTheChipAsListed) {
  const auto toChip = [](std::span<const std::uint8_t> command) {
    return bytesOf(cr95hf::reportOf(ReportId::ToChip, command));
  };
  EXPECT_EQ(toChip(cr95hf::echoCommand), padded("01 55"));
  EXPECT_EQ(toChip(Bytes{cr95hf::identification, 0}), padded("01 01 00"));
  EXPECT_EQ(toChip(cr95hf::selectIso15693), padded("01 02 02 01 0D"));
  EXPECT_EQ(toChip(cr95hf::fieldOff), padded("01 02 02 00 00"));
  EXPECT_EQ(toChip(cr95hf::sendReceive(encodeAirRequest(inventoryRequest()))),
            padded("01 04 03 26 01 00"));
  EXPECT_EQ(toChip(cr95hf::sendReceive(encodeAirRequest(writeMessageRequest(hex("11 22 33 44"))))),
            padded("01 04 08 02 AA 02 03 11 22 33 44"));
  EXPECT_EQ(toChip(cr95hf::sendReceive(hex("02 26"))), padded("01 04 02 02 26"));
  EXPECT_EQ(toChip(cr95hf::sendReceive(hex("02 2B"))), padded("01 04 02 02 2B"));
  EXPECT_EQ(toChip(cr95hf::sendReceive(hex("02 20 05"))), padded("01 04 03 02 20 05"));
}

TEST(Cr95HfReports, GoToTheBoardAsListed) {
  EXPECT_EQ(bytesOf(cr95hf::reportOf(ReportId::ToBoard, Bytes{cr95hf::boardRevision})),
            padded("02 BC"));
}

TEST(Cr95HfReports, CarryALongestPieceInOneReport) {
  const Bytes piece(maxPieceLength, 0xA5);
  const Bytes command = cr95hf::sendReceive(encodeAirRequest(writeMessageRequest(piece)));
  EXPECT_EQ(command.size(), 63U);
  EXPECT_EQ(bytesOf(cr95hf::reportOf(ReportId::ToChip, command)).back(), 0xA5);
}

struct Listing {
  const char* name;
  const char* report;
  Answer answer;

  friend void PrintTo(const Listing& shown, std::ostream* stream) { *stream << shown.name; }
};

std::vector<Listing> answers() {
  return {
      {"echo", "07 55 00", {0x55, {}}},
      {"selected", "07 00 00", {0x00, {}}},
      {"identification",
       "07 00 0F 4E 46 43 20 46 53 32 4A 41 53 54 34 00 2A CE",
       {0x00, hex("4E 46 43 20 46 53 32 4A 41 53 54 34 00 2A CE")}},
      {"inventory",
       "07 80 0D 00 00 88 77 66 55 44 26 02 E0 08 FA 00",
       {0x80, hex("00 00 88 77 66 55 44 26 02 E0 08 FA 00")}},
      {"message",
       "07 80 0A 00 48 45 4C 4C 4F 21 FC 9F 00",
       {0x80, hex("00 48 45 4C 4C 4F 21 FC 9F 00")}},
      {"done", "07 80 04 00 78 F0 00", {0x80, hex("00 78 F0 00")}},
      {"modulePut", "07 80 05 00 43 D8 7F 00", {0x80, hex("00 43 D8 7F 00")}},
      {"readerPut", "07 80 05 00 85 E2 DC 00", {0x80, hex("00 85 E2 DC 00")}},
      {"length", "07 80 05 00 05 EA 58 00", {0x80, hex("00 05 EA 58 00")}},
      {"part", "07 80 07 00 4C 4C 4F 3E 0A 00", {0x80, hex("00 4C 4C 4F 3E 0A 00")}},
      {"refusal", "07 80 05 01 10 1E 06 00", {0x80, hex("01 10 1E 06 00")}},
      {"capturedInventory",
       "07 80 0D 00 00 02 28 E0 6D 58 01 04 E0 D0 60 00",
       {0x80, hex("00 00 02 28 E0 6D 58 01 04 E0 D0 60 00")}},
      {"capturedInformation",
       "07 80 12 00 0F 3F 74 88 41 CE 59 02 E0 FF 00 7F 03 5A 10 70 00",
       {0x80, hex("00 0F 3F 74 88 41 CE 59 02 E0 FF 00 7F 03 5A 10 70 00")}},
      {"capturedBlock", "07 80 08 00 00 00 00 05 DA 98 01", {0x80, hex("00 00 00 00 05 DA 98 01")}},
      {"noTag", "07 87 00", {0x87, {}}},
  };
}

class Cr95HfAnswers : public ::testing::TestWithParam<Listing> {};

TEST_P(Cr95HfAnswers, AreUnderstoodAsListed) {
  EXPECT_EQ(cr95hf::decodeReport(padded(GetParam().report)), GetParam().answer);
}

TEST_P(Cr95HfAnswers, GoOutAsListed) {
  EXPECT_EQ(bytesOf(cr95hf::reportOf(GetParam().answer)), padded(GetParam().report));
}

TEST_P(Cr95HfAnswers, AreHeldToTheirLength) {
  Bytes report = padded(GetParam().report);
  std::replace(report.begin() + 3 + report[2], report.end(), std::uint8_t{0}, std::uint8_t{0xEE});
  EXPECT_EQ(cr95hf::decodeReport(report), GetParam().answer);
}

INSTANTIATE_TEST_SUITE_P(ProtocolPage, Cr95HfAnswers, ::testing::ValuesIn(answers()),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(Cr95HfReport, ThatIsNotAnAnswerIsDamage) {
  for (const char* report : {"", "07", "07 00", "01 00 00"}) {
    EXPECT_EQ(faultOf([&] { (void)cr95hf::decodeReport(hex(report)); }).kind, NfcFaultKind::Damage)
        << report;
  }
}

TEST(Cr95HfReport, ThatAnnouncesMoreThanFitsIsDamage) {
  const auto fault = faultOf([] { (void)cr95hf::decodeReport(padded("07 80 3E")); });
  EXPECT_EQ(fault.kind, NfcFaultKind::Damage);
  EXPECT_THAT(fault.text, HasSubstr("62 bytes, of which 61"));
  Bytes full = padded("07 80 3D");
  EXPECT_EQ(cr95hf::decodeReport(full).data.size(), 61U);
}

TEST(Cr95HfTagAnswer, LosesChecksumAndStatus) {
  const auto answer = cr95hf::tagAnswerOf({0x80, hex("00 43 D8 7F 00")});
  EXPECT_EQ(answer, (AirAnswer{0x00, {0x43}}));
}

TEST(Cr95HfTagAnswer, IsIntactIfItsChecksumIsRightWhateverTheStatus) {
  EXPECT_EQ(cr95hf::tagAnswerOf({0x80, hex("00 00 00 00 05 DA 98 01")}),
            (AirAnswer{0x00, hex("00 00 00 05")}));
}

TEST(Cr95HfTagAnswer, IsDamagedIfItsChecksumIsWrongWhateverTheStatus) {
  const auto fault = faultOf([] { (void)cr95hf::tagAnswerOf({0x80, hex("00 44 D8 7F 00")}); });
  EXPECT_EQ(fault.kind, NfcFaultKind::Damage);
}

TEST(Cr95HfTagAnswer, ThatIsTooShortIsDamage) {
  for (const char* data : {"", "00", "00 78", "78 F0 00"}) {
    EXPECT_EQ(faultOf([&] {
                (void)cr95hf::tagAnswerOf({0x80, hex(data)});
              }).kind,
              NfcFaultKind::Damage)
        << data;
  }
}

struct ResultCode {
  std::uint8_t code;
  NfcFaultKind kind;
  const char* text;

  friend void PrintTo(const ResultCode& shown, std::ostream* stream) { *stream << shown.text; }
};

class Cr95HfErrors : public ::testing::TestWithParam<ResultCode> {};

TEST_P(Cr95HfErrors, AreDistinguished) {
  const auto fault = faultOf([] { (void)cr95hf::tagAnswerOf({GetParam().code, {}}); });
  EXPECT_EQ(fault.kind, GetParam().kind);
  EXPECT_EQ(fault.text,
            "the reader reports error " + hexText(GetParam().code) + ": " + GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    ProtocolPage, Cr95HfErrors,
    ::testing::Values(ResultCode{0x82, NfcFaultKind::ReaderRefusal, "invalid length"},
                      ResultCode{0x83, NfcFaultKind::ReaderRefusal, "no protocol selected"},
                      ResultCode{0x86, NfcFaultKind::Damage, "communication error"},
                      ResultCode{0x87, NfcFaultKind::TagGone, "no answer from a tag"},
                      ResultCode{0x88, NfcFaultKind::Damage, "invalid start of frame"},
                      ResultCode{0x89, NfcFaultKind::Damage, "receive buffer overflow"},
                      ResultCode{0x8A, NfcFaultKind::Damage, "framing error"},
                      ResultCode{0x8B, NfcFaultKind::Damage, "guard time exceeded"},
                      ResultCode{0x8C, NfcFaultKind::Damage, "invalid length of the answer"},
                      ResultCode{0x8D, NfcFaultKind::Damage, "checksum error"},
                      ResultCode{0x8E, NfcFaultKind::Damage, "reception lost"},
                      ResultCode{0x77, NfcFaultKind::ReaderRefusal, "unknown code"}),
    [](const auto& test) { return "Code" + hexText(test.param.code); });

TEST(Cr95HfText, HasTheFormOfTheReadersLibrary) {
  EXPECT_EQ(cr95hf::textOf({0x55, {}}), "5500");
  EXPECT_EQ(cr95hf::textOf({0x00, {}}), "0000");
  EXPECT_EQ(cr95hf::textOf({0x87, {}}), "8700");
  EXPECT_EQ(cr95hf::textOf({0x00, hex("4E 46 43 20 46 53 32 4A 41 53 54 34 00 2A CE")}),
            "000F4E4643204653324A41535434002ACE");
  EXPECT_EQ(cr95hf::textOf({0x80, hex("00 00 88 77 66 55 44 26 02 E0 08 FA 00")}),
            "800D000088776655442602E008FA00");
}

}  // namespace
}  // namespace tessara
