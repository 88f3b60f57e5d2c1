// The requests of the driver and its results.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/hart/HartBench.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::SizeIs;

constexpr const char* moduleName = " at address B0 E2 0A 0B 0C";

TEST(HartRead, IdentifiesTheModuleAtThePollingAddressInTheLowSixBits) {
  HartBench bench(std::map<std::uint16_t, HartBytes>{});
  ASSERT_TRUE(bench.connect());
  for (const auto& [given, request] : std::map<int, const char*>{
           {192, "02 80 00 00 82"}, {5, "02 85 00 00 87"}, {255, "02 BF 00 00 BD"}}) {
    EXPECT_THAT(bench.identification(static_cast<std::uint8_t>(given)),
                ElementsAre(0xB0, 7, 0xE2, 1));
    EXPECT_EQ(bench.slave.requests().back(), afterPreambles(bytesOf(request), 20));
  }
}

TEST(HartRead, AsksForEverythingElseAtTheUniqueAddress) {
  HartBench bench({{20, bytesOf("41 42")}});
  bench.identified();
  bench.command(20);
  EXPECT_EQ(requestIn(bench.requests().at(0)).address, identifiedAddress());
}

TEST(HartRead, ReturnsStatusAndDataByteByByte) {
  HartBench bench([](const Bytes& sent, std::size_t) -> Reply {
    return {{0ms, answered(sent, {0, 0x50}, bytesOf("41 FF 00"))}};
  });
  EXPECT_THAT(bench.identified().command(24), ElementsAre(0, 0x50, 0x41, 0xFF, 0));
}

TEST(HartRead, UsesNeitherSlaveNorCountNorAccess) {
  HartBench bench({{24, bytesOf("41 42")}});
  bench.identified();
  for (const auto any : std::initializer_list<std::int16_t>{-5, 0, 192, 30000}) {
    EXPECT_THAT(bench.driver.ReadInputRegisters(any, 24, any, any), ElementsAre(0, 0, 0x41, 0x42));
  }
}

TEST(HartRead, ReturnsTheDataOfAnExtendedCommandWithoutItsNumber) {
  HartBench bench({{512, bytesOf("55 66")}});
  EXPECT_THAT(bench.identified().command(512), ElementsAre(0, 0, 0x55, 0x66));
  EXPECT_EQ(requestIn(bench.requests().at(0)).data, bytesOf("02 00"));
}

TEST(HartRead, RefusesNumbersThatAreNotCommands) {
  HartBench bench(std::map<std::uint16_t, HartBytes>{});
  bench.identified();
  for (const std::int32_t number : {-1, 31, 254, 255, 65536}) {
    EXPECT_EQ(errorOf([&] { bench.command(number); }),
              bench.port() + ", command " + std::to_string(number) +
                  ": commands have the numbers 0 to 65535 except 31, 254 and 255");
  }
  EXPECT_THAT(bench.requests(), SizeIs(0));
}

TEST(HartRead, FillsTheStatusReplyAndCountsItsBytes) {
  HartBench bench({{48, bytesOf("02 04 00 00 00 00 02 00 00")}});
  bench.identified();
  Cmd48Reply reply{};
  reply.fill(0xAA);
  EXPECT_EQ(bench.driver.CMD48(reply), 9);
  EXPECT_THAT(HartBytes(reply.begin(), reply.begin() + 10),
              ElementsAre(2, 4, 0, 0, 0, 0, 2, 0, 0, 0xAA));
}

TEST(HartRead, TakesAStatusOfAnyLength) {
  for (const std::size_t length : {0U, 6U, 25U, 253U}) {
    HartBench bench({{48, HartBytes(length, 7)}});
    bench.identified();
    Cmd48Reply reply{};
    EXPECT_EQ(bench.driver.CMD48(reply), static_cast<std::int16_t>(length));
  }
}

TEST(HartRead, KeepsTheAddressForLaterConnections) {
  HartBench bench({{48, bytesOf("00 00")}});
  bench.identified();
  bench.driver.CloseSerialConnection();
  ASSERT_TRUE(bench.connect());
  Cmd48Reply reply{};
  EXPECT_EQ(bench.driver.CMD48(reply), 2);
  EXPECT_THAT(bench.slave.requests(), SizeIs(2));
}

TEST(HartRead, IdentifiesByItselfAtTheLastPollingAddressIfNothingIsKnown) {
  HartBench bench({{20, bytesOf("41")}});
  ASSERT_TRUE(bench.connect());
  EXPECT_THAT(bench.command(20), ElementsAre(0, 0, 0x41));
  EXPECT_EQ(bench.slave.requests().at(0), afterPreambles(bytesOf("02 80 00 00 82"), 20));
}

TEST(HartRead, KeepsTheAddressOfEachPortApart) {
  HartBench bench({{20, bytesOf("41")}});
  bench.ports.put(4, bench.slave.device());
  bench.identified();
  ASSERT_TRUE(bench.connect(4));
  bench.command(20);
  EXPECT_THAT(bench.slave.requests(), SizeIs(3));  // two identities, one name
  ASSERT_TRUE(bench.connect(3));
  bench.command(20);
  EXPECT_THAT(bench.slave.requests(), SizeIs(4));
}

TEST(HartRead, ForgetsAModuleThatCouldNotBeIdentifiedAgain) {
  ScriptedSlave slave(
      [](const Bytes& sent, std::size_t) -> Reply {
        const HartFrame request = requestIn(sent);
        if (request.address == HartAddress::polling(7)) return {{0ms, answered(sent, {6, 0})}};
        return {{0ms, moduleAnswer(sent, {{20, bytesOf("41")}})}};
      },
      hartRequestLength);
  const NamedPorts ports({{3, slave.device()}});
  HartDriver driver(ports, {.timings = patient()});
  std::int16_t comPort = 3;
  std::int32_t rate = 1200;
  ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, rate));
  std::uint8_t here = 0;
  std::uint8_t nobody = 7;
  driver.ReadDeviceIdentifier(here);
  EXPECT_THAT(errorOf([&] { driver.ReadDeviceIdentifier(nobody); }),
              HasSubstr(", command 0 at polling address 7: response code 6"));
  EXPECT_THAT(errorOf([&] { driver.ReadInputRegisters(0, 20, 1, 12); }),
              HasSubstr(", command 0 at polling address 7: response code 6"));
}

TEST(HartRead, SendsTheNumberOfPreamblesThatTheModuleNeeds) {
  const std::map<int, std::size_t> sentFor{{0, 5}, {5, 5}, {7, 7}, {20, 20}, {40, 40}, {255, 40}};
  for (const auto& [needed, expected] : sentFor) {
    ScriptedSlave slave(
        [needed = needed](const Bytes& sent, std::size_t) -> Reply {
          const auto identity = exampleIdentity(static_cast<std::uint8_t>(needed));
          return {{0ms, answered(sent, {0, 0}, identity)}};
        },
        hartRequestLength);
    const NamedPorts ports({{3, slave.device()}});
    HartDriver driver(ports, {.timings = patient()});
    std::int16_t comPort = 3;
    std::int32_t rate = 1200;
    ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, rate));
    driver.ReadInputRegisters(0, 20, 1, 12);
    ASSERT_THAT(slave.requests(), SizeIs(2));
    const Bytes request = slave.requests()[1];
    EXPECT_EQ(std::find_if(request.begin(), request.end(), [](auto b) { return b != 0xFF; }) -
                  request.begin(),
              static_cast<std::ptrdiff_t>(expected))
        << needed;
  }
}

TEST(HartRead, ReturnsWarningsWithTheirData) {
  for (const int code : {8, 14, 24, 30, 31, 96, 112, 127}) {
    HartBench bench([code](const Bytes& sent, std::size_t) -> Reply {
      return {{0ms, answered(sent, {static_cast<std::uint8_t>(code), 0}, bytesOf("41"))}};
    });
    EXPECT_THAT(bench.identified().command(20), ElementsAre(code, 0, 0x41));
  }
}

TEST(HartRead, SaysWhichErrorTheModuleAnswersWithAndAsksOnce) {
  for (const auto& [code, text] :
       std::map<int, const char*>{{5, "response code 5: too few data bytes"},
                                  {7, "response code 7: write protected"},
                                  {16, "response code 16: access restricted"},
                                  {32, "response code 32: busy"},
                                  {35, "response code 35: delayed answer dead"},
                                  {64, "response code 64: command not implemented"},
                                  {70, "response code 70: error of this command"}}) {
    HartBench bench([code = code](const Bytes& sent, std::size_t) -> Reply {
      return {{0ms, answered(sent, {static_cast<std::uint8_t>(code), 0})}};
    });
    bench.identified();
    EXPECT_EQ(errorOf([&] { bench.command(20); }),
              bench.port() + ", command 20" + moduleName + ": " + text);
    EXPECT_THAT(bench.requests(), SizeIs(1));
  }
}

TEST(HartRead, AsksAgainWithTheSameRequestWhileTheAnswerIsDelayed) {
  HartBench bench([](const Bytes& sent, std::size_t index) -> Reply {
    constexpr std::array<std::uint8_t, 3> delayCodes{33, 36, 34};
    if (index < delayCodes.size()) return {{0ms, answered(sent, {delayCodes.at(index), 0})}};
    return {{0ms, answered(sent, {0, 0}, bytesOf("41"))}};
  });
  EXPECT_THAT(bench.identified().command(20), ElementsAre(0, 0, 0x41));
  const auto requests = bench.requests();
  ASSERT_THAT(requests, SizeIs(4));
  EXPECT_THAT(requests, ::testing::Each(requests[0]));
}

TEST(HartRead, GivesUpAnAnswerThatIsDelayedForTooLong) {
  HartTimings timings = patient();
  timings.delayedAnswer = 30ms;
  HartBench bench(
      [](const Bytes& sent, std::size_t) -> Reply {
        return {{0ms, answered(sent, {34, 0})}};
      },
      timings);
  bench.identified();
  EXPECT_EQ(errorOf([&] { bench.command(20); }),
            bench.port() + ", command 20" + moduleName +
                ": response code 34: delayed answer running, awaited for up to 30 ms");
}

TEST(HartRead, DoesNotAwaitADelayedAnswerBeyondItsTime) {
  // The module announces a delayed answer and then falls silent.
  HartTimings timings = patient();
  timings.delayedAnswer = 300ms;
  HartBench bench(
      [](const Bytes& sent, std::size_t index) -> Reply {
        if (index > 0) return {};
        return {{0ms, answered(sent, {33, 0})}};
      },
      timings);
  bench.identified();
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EQ(errorOf([&] { bench.command(20); }),
            bench.port() + ", command 20" + moduleName +
                ": response code 33: delayed answer started, awaited for up to 300 ms");
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 10s);
  EXPECT_THAT(bench.requests(), SizeIs(2));
}

/// Expects command 48 to have no reply if the module answers it like that.
void expectNoStatus(ScriptedSlave::Script script) {
  HartTimings timings = brisk();
  timings.delayedAnswer = 30ms;
  HartBench bench(std::move(script), timings);
  bench.identified();
  Cmd48Reply reply{7};
  EXPECT_EQ(bench.driver.CMD48(reply), 0);
  EXPECT_EQ(reply, Cmd48Reply{7});
}

TEST(HartRead, CountsNoStatusBytesIfTheModuleRefusesCommand48) {
  for (const std::uint8_t code : Bytes{64, 32, 16, 34}) {
    expectNoStatus([code](const Bytes& sent, std::size_t) -> Reply {
      return {{0ms, answered(sent, {code, 0})}};
    });
  }
}

TEST(HartRead, CountsNoStatusBytesIfTheAnswerIsDamaged) {
  expectNoStatus([](const Bytes& sent, std::size_t) -> Reply {
    Bytes bytes = answered(sent, {0, 0}, bytesOf("01 02"));
    bytes.back() = static_cast<std::uint8_t>(~bytes.back());
    return {{0ms, bytes}};
  });
}

TEST(HartRead, CountsNoStatusBytesIfNothingAnswers) {
  expectNoStatus([](const Bytes&, std::size_t) { return Reply(); });
}

TEST(HartRead, CountsNoStatusBytesIfThePortHasGone) {
  expectNoStatus([](const Bytes&, std::size_t) -> Reply { return {{0ms, {}, true}}; });
}

TEST(HartRead, CountsNoStatusBytesWithoutAConnection) {
  HartBench bench({{48, bytesOf("01 02")}});
  Cmd48Reply reply{7};
  EXPECT_EQ(bench.driver.CMD48(reply), 0);
  bench.identified();
  bench.driver.CloseSerialConnection();
  EXPECT_EQ(bench.driver.CMD48(reply), 0);
  EXPECT_EQ(reply, Cmd48Reply{7});
}

TEST(HartRead, SaysSoWithoutAConnection) {
  HartBench bench(std::map<std::uint16_t, HartBytes>{});
  EXPECT_EQ(errorOf([&] { bench.identification(); }),
            "HART port, command 0 at polling address 0: no connection is open");
  bench.identified();
  bench.driver.CloseSerialConnection();
  bench.driver.CloseSerialConnection();
  EXPECT_EQ(errorOf([&] { bench.command(20); }),
            bench.port() + ", command 20" + moduleName + ": no connection is open");
}

TEST(HartRead, RefusesAnIdentityThatIsTooShort) {
  ScriptedSlave slave(
      [](const Bytes& sent, std::size_t) -> Reply {
        return {{0ms, answered(sent, {0, 0}, bytesOf("FE 01"))}};
      },
      hartRequestLength);
  const NamedPorts ports({{3, slave.device()}});
  HartDriver driver(ports, {.timings = patient()});
  std::int16_t comPort = 3;
  std::int32_t rate = 1200;
  ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, rate));
  std::uint8_t address = 0;
  EXPECT_THAT(errorOf([&] { driver.ReadDeviceIdentifier(address); }),
              HasSubstr(": answer too short, 2 of at least 12 data bytes"));
}

}  // namespace
}  // namespace tessara::testing
