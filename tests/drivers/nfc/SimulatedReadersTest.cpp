#include <chrono>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/nfc/FaultOf.h"
#include "drivers/nfc/NfcSample.h"
#include "drivers/nfc/TagCommands.h"
#include "drivers/nfc/UsbReader.h"
#include "serial/PortError.h"
#include "simulator/ModbusCodec.h"
#include "simulator/nfc/SimulatedTwn4.h"
#include "simulator/nfc/SimulatedUsbReader.h"

namespace tessara {
namespace {

using namespace std::chrono_literals;
using testing::hex;
using testing::nfcSample;

class SimulatedTwn4s : public ::testing::Test {
 protected:
  /// The lines that are sent back, without their ends; "none" if there is none.
  std::string ask(const std::string& line) {
    const std::string sent = line + "\r";
    std::string lines;
    for (const auto& answer : reader.receive(Bytes(sent.begin(), sent.end()))) {
      lines += std::string(answer.bytes.begin(), answer.bytes.end() - 1);
    }
    return lines.empty() ? "none" : lines;
  }
  void order(FieldEffect effect) { reader.field().setFaults({{effect, faults::Every{1}}}); }

  SimulatedTwn4 reader{nfcSample()};
};

TEST_F(SimulatedTwn4s, AnswerAsListed) {
  EXPECT_EQ(ask("0004FF"), "001A54574E342F42312E30362F434346342E35312F505253312E3034");
  EXPECT_EQ(ask("05020000000004000000"), "00");
  EXPECT_EQ(ask("0503"), "000000000004000000");
  EXPECT_EQ(ask("050010"), "0001824008E002264455667788");
  EXPECT_EQ(ask("0D0002AE03020D01FF"), "000100");
  EXPECT_EQ(ask("0D0002AD02020DFF"), "00010101");
  EXPECT_EQ(ask("0501"), "00");
  EXPECT_EQ(ask("0999"), "01");
}

TEST_F(SimulatedTwn4s, CarryMailboxMessages) {
  ask("050010");
  ask("0D0002AE03020D01FF");
  const Bytes request = modbusFrame(defaultAddress, reportServerIdFunction);
  EXPECT_EQ(ask("0D0002AA0602" + hexText(static_cast<std::uint8_t>(request.size() - 1)) +
                hexText(request) + "FF"),
            "000100");
  EXPECT_EQ(ask("0D0002AD02020DFF"), "00010143");
  EXPECT_EQ(ask("0D0002AB0102FF"), "0001010E");
  const Bytes answer =
      modbusFrame(defaultAddress, reportServerIdFunction, hex("0A 01 FF 00 31 00 01 00 0F 00 97"));
  EXPECT_EQ(ask("0D0002AC03020000FF"), "00010F" + hexText(answer));
}

TEST_F(SimulatedTwn4s, FindNothingWithoutATag) {
  order(fieldFaults::TagAbsent{});
  EXPECT_EQ(ask("050010"), "0000");
}

TEST_F(SimulatedTwn4s, FindNothingIfTheyLookForOtherTags) {
  EXPECT_EQ(ask("05020000000001000000"), "00");
  EXPECT_EQ(ask("0503"), "000000000001000000");
  EXPECT_EQ(ask("050010"), "0000");
}

TEST_F(SimulatedTwn4s, SendNothingToATagThatHasNotBeenSearched) {
  EXPECT_EQ(ask("0D0002AD02020DFF"), "0000");
  ask("050010");
  EXPECT_EQ(ask("0D0002AD02020DFF"), "00010100");
  ask("0501");
  EXPECT_EQ(ask("0D0002AD02020DFF"), "0000");
}

TEST_F(SimulatedTwn4s, FailWithoutACauseIfTheTagRefuses) {
  ask("050010");
  EXPECT_EQ(ask("0D0002200150FF"), "0000");
}

TEST_F(SimulatedTwn4s, SayWhatIsWrongWithACall) {
  EXPECT_EQ(ask("0004"), "02");
  EXPECT_EQ(ask("00"), "02");
  EXPECT_EQ(ask("0004FFFF"), "03");
  EXPECT_EQ(ask("0D0002AD05020DFF"), "02");
  EXPECT_EQ(ask("xyz"), "05");
  EXPECT_EQ(ask("0D00026601FFFF"),
            "00"
            "00");
}

TEST_F(SimulatedTwn4s, AssembleLinesFromPieces) {
  EXPECT_TRUE(reader.receive(hex("30 35 30")).empty());
  const auto answers = reader.receive(hex("31 0D 30"));
  ASSERT_EQ(answers.size(), 1U);
  EXPECT_EQ(answers[0].bytes, hex("30 30 0D"));
  reader.forgetOpenFrame();
  EXPECT_EQ(ask("0501"), "00");
  EXPECT_FALSE(reader.isFrameOpen());
  EXPECT_FALSE(reader.silence().has_value());
}

TEST_F(SimulatedTwn4s, ShowTheFaultsOfTheField) {
  ask("050010");
  order(fieldFaults::AirChecksum{});
  EXPECT_EQ(ask("0D0002AD02020DFF"), "0000");
  order(fieldFaults::ReaderError{4});
  EXPECT_EQ(ask("0D0002AD02020DFF"), "04");
  order(fieldFaults::ReaderSilent{});
  EXPECT_EQ(ask("0D0002AD02020DFF"), "none");
}

class SimulatedBoards : public ::testing::Test {
 protected:
  /// The answer to a listed report, without the padding.
  std::string ask(const std::string& listing) {
    const auto report = board.answer(hex(listing));
    if (!report) return "none";
    return hexText(std::span(*report).first(std::size_t{3} + (*report)[2]));
  }
  void order(FieldEffect effect) { board.field().setFaults({{effect, faults::Every{1}}}); }

  SimulatedBoard board{nfcSample()};
};

TEST_F(SimulatedBoards, AnswerAsListed) {
  EXPECT_EQ(ask("01 55"), "075500");
  EXPECT_EQ(ask("01 01 00"), "07000F4E4643204653324A41535434002ACE");
  EXPECT_EQ(ask("01 02 02 01 0D"), "070000");
  EXPECT_EQ(ask("01 04 03 26 01 00"), "07800D000088776655442602E008FA00");
  EXPECT_EQ(ask("01 04 05 02 AE 02 0D 01"), "0780040078F000");
  EXPECT_EQ(ask("01 04 03 02 20 50"), "07800501101E0600");
  EXPECT_EQ(ask("01 02 02 00 00"), "070000");
  EXPECT_EQ(ask("02 BC"), "070003030704");
  EXPECT_EQ(ask("02 BD"), "070000");
}

TEST_F(SimulatedBoards, SendNothingBeforeAProtocolIsSelected) {
  EXPECT_EQ(ask("01 04 03 26 01 00"), "078300");
  ask("01 02 02 01 0D");
  ask("01 02 02 00 00");
  EXPECT_EQ(ask("01 04 03 26 01 00"), "078300");
}

TEST_F(SimulatedBoards, SayWhatIsWrongWithACommand) {
  EXPECT_EQ(ask("01 02 02 05 0D"), "078300");
  EXPECT_EQ(ask("01 02 01 01"), "078200");
  EXPECT_EQ(ask("01 04 09 26"), "078200");
  EXPECT_EQ(ask("01 77 00"), "078200");
  EXPECT_EQ(ask("07 55"), "none");
  EXPECT_EQ(ask("01"), "none");
}

TEST_F(SimulatedBoards, ShowTheFaultsOfTheField) {
  ask("01 02 02 01 0D");
  order(fieldFaults::TagAbsent{});
  EXPECT_EQ(ask("01 04 03 26 01 00"), "078700");
  order(fieldFaults::AirChecksum{});
  EXPECT_EQ(ask("01 04 05 02 AE 02 0D 01"), "0780040078" + std::string("0F") + "01");
  order(fieldFaults::ReaderError{0x86});
  EXPECT_EQ(ask("01 04 03 26 01 00"), "078600");
  order(fieldFaults::ReaderSilent{});
  EXPECT_EQ(ask("01 04 03 26 01 00"), "none");
}

TEST_F(SimulatedBoards, GetNoAnswerFromATagToAnInvalidRequest) {
  ask("01 02 02 01 0D");
  EXPECT_EQ(ask("01 04 03 02 AD 07"), "078700");
}

TEST(SimulatedUsbReaders, AreHeldByOneUserAtATime) {
  SimulatedUsbReader readers(nfcSample());
  auto device = readers.open();
  EXPECT_EQ(device->name(), "simulated");
  EXPECT_THROW((void)readers.open(), PortError);
  device.reset();
  EXPECT_NE(readers.open(), nullptr);
}

TEST(SimulatedUsbReaders, CanBeUnplugged) {
  SimulatedUsbReader readers(nfcSample());
  UsbReader reader(readers.open(), 400ms);
  EXPECT_EQ(reader.echo().result, 0x55);
  readers.unplug();
  EXPECT_EQ(faultOf([&] { (void)reader.echo(); }).kind, NfcFaultKind::NoReader);
  EXPECT_THROW((void)readers.open(), PortError);
  readers.plug();
  EXPECT_EQ(faultOf([&] { (void)reader.echo(); }).kind, NfcFaultKind::NoReader)
      << "what was opened before does not come back";
}

TEST(SimulatedFields, CountTheRequestsOfTheReader) {
  auto sample = nfcSample();
  sample.faults = {{fieldFaults::TagAbsent{}, faults::At{2}}};
  SimulatedField field(sample);
  const auto isAnswered = [&] {
    return field.send(readControlRequest(), SimulatedField::Clock::now()).answer.has_value();
  };
  EXPECT_TRUE(isAnswered());
  EXPECT_FALSE(isAnswered());
  EXPECT_TRUE(isAnswered());
}

TEST(SimulatedFields, HaveTagsThatLeaveAndComeBack) {
  auto sample = nfcSample();
  sample.faults = {{fieldFaults::TagLeaves{100ms}, faults::At{2}}};
  SimulatedField field(sample);
  SimulatedField::Clock::time_point now{1h};
  const auto control = [&]() -> int {
    const auto answer = field.send(readControlRequest(), now).answer;
    return answer ? answer->data.at(0) : -1;
  };
  field.send(writeControlRequest(0x01), now);
  EXPECT_EQ(control(), -1);
  now += 99ms;
  EXPECT_EQ(control(), -1);
  now += 1ms;
  EXPECT_EQ(control(), 0x00) << "and its mailbox is off";
}

TEST(SimulatedFields, EndTemporaryFaults) {
  auto sample = nfcSample();
  sample.faults = {{fieldFaults::MailboxBusy{100ms}, faults::At{1}}};
  SimulatedField field(sample);
  SimulatedField::Clock::time_point now{1h};
  const auto control = [&] { return field.send(readControlRequest(), now).answer->data.at(0); };
  EXPECT_EQ(control(), 0x85);
  now += 100ms;
  EXPECT_EQ(control(), 0x00);
}

TEST(SimulatedFields, ForgetOldFaultsWithNewOnes) {
  auto sample = nfcSample();
  sample.faults = {{fieldFaults::TagLeaves{}, faults::At{1}},
                   {fieldFaults::MailboxOff{}, faults::At{1}}};
  SimulatedField field(sample);
  const auto send = [&](const AirRequest& request) {
    return field.send(request, SimulatedField::Clock::now()).answer;
  };
  EXPECT_FALSE(send(readControlRequest()).has_value());
  field.setFaults({});
  send(writeControlRequest(0x01));
  EXPECT_EQ(send(readControlRequest())->data, (Bytes{0x01}));
}

}  // namespace
}  // namespace tessara
