#include <chrono>
#include <csignal>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/time.h>

#include "drivers/ModbusLine.h"
#include "drivers/ReadError.h"

namespace tessara::testing {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

/// For tests in which an answer stays out: fail soon.
ModbusTimings impatient() {
  return {.answer = 100ms};
}

/// For tests in which an answer must not stay out, however busy the machine is.
ModbusTimings patient() {
  return {.answer = 20s, .pauses = 20s};
}

Reply at(std::chrono::milliseconds after, const Bytes& bytes) {
  return {{after, bytes}};
}

Bytes withBadChecksum(Bytes frame) {
  frame.back() ^= 0x01U;
  return frame;
}

TEST(ModbusRead, RegistersAreReadByFunction4AsSignedWords) {
  ModbusLine line(always(registersAnswer(192, {0x1234, 0x8000, 0xFFFF, 0})), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.registers(5, 4), ElementsAre(0x1234, -32768, -1, 0));
  EXPECT_THAT(line.slave.requests(), ElementsAre(framed({0xC0, 0x04, 0, 5, 0, 4})));
}

TEST(ModbusRead, IdentificationIsReadByFunction17) {
  ModbusLine line(always(identificationAnswer(1, {42, 5, 16, 0xFFFE})), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.identification(1), ElementsAre(42, 5, 16, -2));
  EXPECT_THAT(line.slave.requests(), ElementsAre(Bytes{0x01, 0x11, 0xC0, 0x2C}));
}

TEST(ModbusRead, IdentificationMayCarryMoreThanTheFourWords) {
  ModbusLine line(always(identificationAnswer(192, {1, 2, 3, 4, 5})), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.identification(), ElementsAre(1, 2, 3, 4));
}

TEST(ModbusRead, TheFourthArgumentMakesNoDifference) {
  ModbusLine line(always(registersAnswer(192, {1})), patient());
  ASSERT_TRUE(line.connect());
  (void)line.driver.ReadInputRegisters(192, 4, 1, 2);
  (void)line.driver.ReadInputRegisters(192, 4, 1, 12);
  const auto requests = line.slave.requests();
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[0], requests[1]);
}

TEST(ModbusRead, OutermostRegistersAndAddressesCanBeRead) {
  std::vector<std::uint16_t> words(125, 3);
  ModbusLine line([&](const Bytes& request,
                      std::size_t) { return at(0ms, registersAnswer(request[0], words)); },
                  patient());
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(line.driver.ReadInputRegisters(1, 0, 125, 2).size(), 125U);
  EXPECT_EQ(line.driver.ReadInputRegisters(247, 65411, 125, 2).size(), 125U);
}

TEST(ModbusRead, AnAnswerInSeveralPiecesIsOneAnswer) {
  const Bytes frame = registersAnswer(192, {1, 2});
  Reply reply;
  for (std::size_t i = 0; i < frame.size(); ++i) {
    reply.push_back({std::chrono::milliseconds(5 * i), {frame[i]}});
  }
  ModbusLine line(inTurn({reply}), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.registers(5, 2), ElementsAre(1, 2));
  EXPECT_EQ(line.slave.requests().size(), 1U);
}

TEST(ModbusRead, NoAnswerIsAskedForTwiceAndNamesPortRequestAndCause) {
  ModbusLine line(inTurn({{}}));
  ASSERT_TRUE(line.connect());
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EQ(
      errorOf([&] { line.registers(5, 4); }),
      line.port() + ", input registers 5..8 at address 192: no answer within 500 ms, asked twice");
  EXPECT_GE(std::chrono::steady_clock::now() - begun, 1s);
  EXPECT_EQ(line.slave.requests().size(), 2U);
}

TEST(ModbusRead, IdentificationAndSingleRegisterAreNamedInMessages) {
  ModbusLine line(always(framed({192, 0x91, 4})), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(errorOf([&] { line.identification(); }),
            line.port() + ", identification at address 192: exception 4: device failure");
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            line.port() + ", input register 4 at address 192: answer to function 17");
}

TEST(ModbusRead, AFailedReadIsAReadError) {
  ModbusLine line(always(framed({192, 0x84, 2})), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_THROW(line.registers(4, 1), ReadError);
}

TEST(ModbusRead, AnAnswerLostOnceIsAskedForAgain) {
  ModbusLine line(inTurn({{}, at(0ms, registersAnswer(192, {7}))}), {.answer = 300ms});
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.registers(4, 1), ElementsAre(7));
  const auto requests = line.slave.requests();
  ASSERT_EQ(requests.size(), 2U);
  EXPECT_EQ(requests[0], requests[1]);
}

TEST(ModbusRead, AnAnswerDamagedOnceIsAskedForAgain) {
  const Bytes good = registersAnswer(192, {7});
  ModbusLine line(inTurn({at(0ms, withBadChecksum(good)), at(0ms, good)}), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.registers(4, 1), ElementsAre(7));
  EXPECT_EQ(line.slave.requests().size(), 2U);
}

TEST(ModbusRead, AnAnswerDamagedTwiceIsAChecksumError) {
  ModbusLine line(always(withBadChecksum(registersAnswer(192, {7}))), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            line.port() + ", input register 4 at address 192: checksum error, asked twice");
  EXPECT_EQ(line.slave.requests().size(), 2U);
}

TEST(ModbusRead, AnExceptionCodeIsFinal) {
  ModbusLine line(always(framed({192, 0x84, 2})), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            line.port() + ", input register 4 at address 192: exception 2: illegal data address");
  EXPECT_EQ(line.slave.requests().size(), 1U);
}

TEST(ModbusRead, AnAnswerFromAnotherAddressIsFinal) {
  ModbusLine line(always(registersAnswer(7, {1})), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            line.port() + ", input register 4 at address 192: answer from address 7");
  EXPECT_EQ(line.slave.requests().size(), 1U);
}

TEST(ModbusRead, AnAnswerWithAnotherNumberOfRegistersIsRefused) {
  ModbusLine line(always(registersAnswer(192, {1, 2})), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(
      errorOf([&] { line.registers(5, 4); }),
      line.port() + ", input registers 5..8 at address 192: answer with 4 data bytes instead of 8");
}

TEST(ModbusRead, AnAnswerThatBreaksOffTwiceSaysSo) {
  Bytes frame = registersAnswer(192, {1, 2});
  frame.resize(5);
  ModbusLine line(always(frame), {.answer = 20s, .pauses = 100ms});
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(
      errorOf([&] { line.registers(5, 2); }),
      line.port() + ", input registers 5..6 at address 192: the answer broke off, asked twice");
  EXPECT_EQ(line.slave.requests().size(), 2U);
}

TEST(ModbusRead, AnAnswerThatTricklesInIsGivenUp) {
  const Bytes frame = registersAnswer(192, std::vector<std::uint16_t>(20, 1));
  Reply reply;
  for (std::size_t i = 0; i < frame.size(); ++i) {
    reply.push_back({std::chrono::milliseconds(70 * i), {frame[i]}});
  }
  ModbusLine line(inTurn({reply, {}}), {.answer = 100ms, .pauses = 100ms, .noise = 100ms});
  ASSERT_TRUE(line.connect());
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_NE(errorOf([&] { line.registers(0, 20); }), "");
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 70ms * frame.size());
}

TEST(ModbusRead, NoiseBeforeTheAnswerIsADamagedAnswer) {
  const Bytes good = registersAnswer(192, {7});
  Bytes noisy{0x55, 0x12};
  noisy.insert(noisy.end(), good.begin(), good.end());
  ModbusLine line(inTurn({at(0ms, noisy), at(0ms, good)}), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_THAT(line.registers(4, 1), ElementsAre(7));
  EXPECT_EQ(line.slave.requests().size(), 2U);
}

TEST(ModbusRead, AnAddressDamagedOnTheWayIsAChecksumErrorAndNotAnAnswerFromAnother) {
  Bytes frame = registersAnswer(192, {7});
  frame[0] = 7;
  ModbusLine line(always(frame), {.answer = 300ms});
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            line.port() + ", input register 4 at address 192: checksum error, asked twice");
}

TEST(ModbusRead, AnEchoOfTheRequestIsNotAnAnswer) {
  ModbusLine line([](const Bytes& request, std::size_t) { return at(0ms, request); },
                  {.answer = 300ms, .pauses = 50ms});
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            line.port() + ", input register 4 at address 192: checksum error, asked twice");
  EXPECT_EQ(errorOf([&] { line.identification(); }),
            line.port() + ", identification at address 192: the answer broke off, asked twice");
}

TEST(ModbusRead, AnIdentificationThatIsTooShortSaysSo) {
  ModbusLine line(always(identificationAnswer(192, {1, 2, 3})), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(errorOf([&] { line.identification(); }),
            line.port() +
                ", identification at address 192: answer too short, 8 of at least 10 data bytes");
  EXPECT_EQ(line.slave.requests().size(), 1U);
}

TEST(ModbusRead, AnInvalidAddressIsRefusedAndNothingIsSent) {
  ModbusLine line(always(registersAnswer(0, {1})), patient());
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(
      errorOf([&] { line.identification(0); }),
      line.port() +
          ", identification at address 0: address 0 calls all modules and is answered by none");
  EXPECT_EQ(errorOf([&] { line.identification(248); }),
            line.port() + ", identification at address 248: a module has an address from 1 to 247");
  EXPECT_EQ(errorOf([&] { (void)line.driver.ReadInputRegisters(0, 20, 1, 12); }),
            line.port() +
                ", input register 20 at address 0: address 0 calls all modules and is answered by "
                "none");
  EXPECT_EQ(
      errorOf([&] { (void)line.driver.ReadInputRegisters(-1, 20, 1, 12); }),
      line.port() + ", input register 20 at address -1: a module has an address from 1 to 247");
  EXPECT_TRUE(line.slave.requests().empty());
}

TEST(ModbusRead, AnInvalidRegisterIsRefusedAndNothingIsSent) {
  ModbusLine line(always(registersAnswer(192, {1})), patient());
  ASSERT_TRUE(line.connect());
  const std::string name = line.port() + ", input register";
  EXPECT_EQ(errorOf([&] { line.registers(-1, 1); }),
            name + " -1 at address 192: registers have the numbers 0 to 65535");
  EXPECT_EQ(errorOf([&] { line.registers(65536, 1); }),
            name + " 65536 at address 192: registers have the numbers 0 to 65535");
  EXPECT_EQ(errorOf([&] { line.registers(65535, 2); }),
            name + "s 65535..65536 at address 192: registers have the numbers 0 to 65535");
  EXPECT_EQ(
      errorOf([&] { line.registers(0x7FFFFFFF, 2); }),
      name + "s 2147483647..2147483648 at address 192: registers have the numbers 0 to 65535");
  EXPECT_EQ(errorOf([&] { line.registers(5, 0); }),
            name + "s from 5 at address 192: 1 to 125 registers can be read at a time, not 0");
  EXPECT_EQ(errorOf([&] { line.registers(5, -3); }),
            name + "s from 5 at address 192: 1 to 125 registers can be read at a time, not -3");
  EXPECT_EQ(errorOf([&] { line.registers(5, 126); }),
            name + "s 5..130 at address 192: 1 to 125 registers can be read at a time, not 126");
  EXPECT_TRUE(line.slave.requests().empty());
}

TEST(ModbusRead, HartCommand48HasNoReply) {
  ModbusLine line(always(registersAnswer(192, {1})), patient());
  Cmd48Reply reply{7};
  EXPECT_EQ(line.driver.CMD48(reply), 0);
  ASSERT_TRUE(line.connect());
  EXPECT_EQ(line.driver.CMD48(reply), 0);
  EXPECT_EQ(reply, Cmd48Reply{7});
  EXPECT_TRUE(line.slave.requests().empty());
}

TEST(ModbusRead, ABusyModuleIsAskedAgainUntilItAnswers) {
  for (const std::uint8_t code : Bytes{5, 6}) {
    const Bytes busy = framed({192, 0x84, code});
    ModbusLine line(
        inTurn({at(0ms, busy), at(0ms, busy), at(0ms, busy), at(0ms, registersAnswer(192, {7}))}),
        {.answer = 20s, .pauses = 20s, .busyPause = 5ms});
    ASSERT_TRUE(line.connect());
    EXPECT_THAT(line.registers(4, 1), ElementsAre(7));
    EXPECT_EQ(line.slave.requests().size(), 4U);
  }
}

TEST(ModbusRead, ABusyModuleIsLeftAPauseBeforeItIsAskedAgain) {
  const Bytes busy = framed({192, 0x84, 6});
  ModbusLine line(inTurn({at(0ms, busy), at(0ms, registersAnswer(192, {7}))}),
                  {.answer = 20s, .pauses = 20s, .busyPause = 80ms});
  ASSERT_TRUE(line.connect());
  line.registers(4, 1);
  EXPECT_THAT(line.slave.silences(), ElementsAre(::testing::Ge(80ms)));
}

TEST(ModbusRead, AModuleThatStaysBusyIsGivenUpWithTheTimeForAnAnswer) {
  ModbusLine line(always(framed({192, 0x84, 6})),
                  {.answer = 200ms, .pauses = 20s, .busyPause = 5ms});
  ASSERT_TRUE(line.connect());
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            line.port() + ", input register 4 at address 192: exception 6: busy, asked for 200 ms");
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 10s);
  EXPECT_GT(line.slave.requests().size(), 1U);
}

TEST(ModbusRead, WithoutAConnectionAReadIsAnError) {
  ModbusLine line(always(registersAnswer(192, {1})), impatient());
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            "Modbus port, input register 4 at address 192: no connection is open");
  ASSERT_TRUE(line.connect());
  line.driver.CloseSerialConnection();
  EXPECT_EQ(errorOf([&] { line.registers(4, 1); }),
            line.port() + ", input register 4 at address 192: no connection is open");
}

TEST(ModbusRead, SignalsDoNotDisturbARead) {
  ModbusLine line(inTurn({at(200ms, registersAnswer(192, {7}))}), patient());
  ASSERT_TRUE(line.connect());
  std::signal(SIGALRM, [](int) {});
  const ::itimerval every2ms{{0, 2000}, {0, 2000}};
  ASSERT_EQ(::setitimer(ITIMER_REAL, &every2ms, nullptr), 0);
  EXPECT_THAT(line.registers(4, 1), ElementsAre(7));
  const ::itimerval never{};
  ::setitimer(ITIMER_REAL, &never, nullptr);
}

}  // namespace
}  // namespace tessara::testing
