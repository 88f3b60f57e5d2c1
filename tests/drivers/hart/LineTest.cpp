// The driver on lines that misbehave.

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "drivers/hart/HartBench.h"

namespace tessara::testing {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::Ge;
using ::testing::SizeIs;

const HartBytes nameData = bytesOf("41 42");

Bytes sound(const Bytes& sent) {
  return answered(sent, {0, 0}, nameData);
}

/// An answer with other contents, further changed by `change`.
Bytes spoilt(const Bytes& sent, const std::function<void(HartFrame&)>& change) {
  HartFrame answer = hartAnswer(requestIn(sent), {0, 0}, bytesOf("66 66"));
  change(answer);
  return encodeHart(answer, 5);
}

/// Expects the read to succeed with the intact answer, after `tries` requests.
void expectName(ScriptedSlave::Script script, std::size_t tries, const HartTimings& timings) {
  HartBench bench(std::move(script), timings);
  EXPECT_THAT(bench.identified().command(20), ElementsAre(0, 0, 0x41, 0x42));
  EXPECT_THAT(bench.requests(), SizeIs(tries));
}

/// An intact answer after these bytes, which must not lead to a repeat.
void expectNameAfter(const std::function<Bytes(const Bytes& sent)>& before) {
  expectName(
      [before](const Bytes& sent, std::size_t) -> Reply {
        return {{0ms, joined({before(sent), sound(sent)})}};
      },
      1, patient());
}

/// Bad answers to the first requests, an intact one to the last.
ScriptedSlave::Script badFor(std::size_t requests, std::function<Bytes(const Bytes& sent)> bad) {
  return [requests, bad = std::move(bad)](const Bytes& sent, std::size_t index) -> Reply {
    const Bytes bytes = index < requests ? bad(sent) : sound(sent);
    if (bytes.empty()) return {};
    return {{0ms, bytes}};
  };
}

Bytes wrongCheckByte(const Bytes& sent) {
  Bytes bytes = sound(sent);
  bytes.back() = static_cast<std::uint8_t>(~bytes.back());
  return bytes;
}

TEST(HartLine, AsksUpToThreeTimesIfNothingAnswers) {
  expectName(badFor(2, [](const Bytes&) { return Bytes(); }), 3, brisk());
}

TEST(HartLine, GivesUpAfterThreeRequestsWithoutAnAnswer) {
  HartTimings timings = patient();
  timings.hostMargin = 20ms;
  ScriptedSlave silent([](const Bytes&, std::size_t) { return Reply(); }, hartRequestLength);
  const NamedPorts ports({{3, silent.device()}});
  HartDriver driver(ports, {.timings = timings});
  std::int16_t comPort = 3;
  std::int32_t rate = 1200;
  std::uint8_t address = 9;
  ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, rate));
  EXPECT_EQ(errorOf([&] { driver.ReadDeviceIdentifier(address); }),
            "COM3 (" + silent.device() +
                "), command 0 at polling address 9: no answer within 5 ms, asked 3 times");
  const auto requests = silent.requests();
  EXPECT_THAT(requests, SizeIs(3));
  EXPECT_THAT(requests, Each(requests.at(0)));
}

TEST(HartLine, EndsAReadAttemptAtASilentModuleWithinThreeSeconds) {
  ScriptedSlave silent([](const Bytes&, std::size_t) { return Reply(); }, hartRequestLength);
  const NamedPorts ports({{3, silent.device()}});
  HartDriver driver(ports);
  std::int16_t comPort = 3;
  std::int32_t rate = 1200;
  std::uint8_t address = 0;
  auto quickest = std::chrono::steady_clock::duration::max();
  // Other programs may slow down one attempt, but not all.
  for (int attempt = 0; attempt < 5 && quickest > 3s; ++attempt) {
    const auto begun = std::chrono::steady_clock::now();
    ASSERT_TRUE(driver.ConnectWithSerialDevice(comPort, rate));
    EXPECT_NE(errorOf([&] { driver.ReadDeviceIdentifier(address); }), "");
    quickest = std::min(quickest, std::chrono::steady_clock::now() - begun);
  }
  EXPECT_LE(quickest, 3s);
}

TEST(HartLine, AsksAgainAfterAWrongCheckByte) {
  expectName(badFor(2, wrongCheckByte), 3, brisk());
}

TEST(HartLine, AsksAgainAfterAnAnswerThatBrokeOff) {
  expectName(badFor(2,
                    [](const Bytes& sent) {
                      const Bytes bytes = sound(sent);
                      return Bytes(bytes.begin(), bytes.end() - 3);
                    }),
             3, brisk());
}

TEST(HartLine, AsksAgainAfterAnAnswerWithoutAStatus) {
  expectName(badFor(1,
                    [](const Bytes& sent) {
                      return spoilt(sent, [](HartFrame& answer) { answer.data.clear(); });
                    }),
             2, brisk());
}

TEST(HartLine, AsksAgainIfTheModuleHasReceivedTheRequestBadly) {
  expectName(badFor(2, [](const Bytes& sent) { return answered(sent, {0x88, 0}); }), 3, patient());
}

TEST(HartLine, AsksAgainIfTheAnswerHasTooFewPreambles) {
  expectName(badFor(1,
                    [](const Bytes& sent) {
                      const Bytes bytes = sound(sent);
                      return Bytes(bytes.begin() + 4, bytes.end());
                    }),
             2, brisk());
}

/// Expects three requests with that answer to end in an error.
void expectError(const std::function<Bytes(const Bytes& sent)>& bad, const std::string& cause) {
  HartBench bench(badFor(100, bad), brisk());
  bench.identified();
  EXPECT_THAT(errorOf([&] { bench.command(20); }), EndsWith(": " + cause + ", asked 3 times"));
  EXPECT_THAT(bench.requests(), SizeIs(3));
}

TEST(HartLine, SaysWhatIsWrongWithTheAnswers) {
  expectError(wrongCheckByte, "the answer has a wrong check byte");
}

TEST(HartLine, SaysThatTheAnswersBreakOff) {
  expectError(
      [](const Bytes& sent) {
        const Bytes bytes = sound(sent);
        return Bytes(bytes.begin(), bytes.end() - 1);
      },
      "the answer broke off");
}

TEST(HartLine, SaysThatTheAnswersAreTooShort) {
  expectError(
      [](const Bytes& sent) {
        return spoilt(sent, [](HartFrame& answer) { answer.data.resize(1); });
      },
      "the answer is too short");
}

TEST(HartLine, SaysHowTheModuleReceives) {
  expectError(
      [](const Bytes& sent) {
        return answered(sent, {0xC8, 0});
      },
      "the module reports communication error C8: parity, check byte");
}

TEST(HartLine, SaysThatAnotherModuleAnswers) {
  expectError(
      [](const Bytes& sent) {
        return spoilt(sent, [](HartFrame& answer) { answer.address = exampleAddress(); });
      },
      "no answer, only one from address A1 23 0A 0B 0C");
}

TEST(HartLine, SaysThatAnotherCommandIsAnswered) {
  expectError(
      [](const Bytes& sent) {
        return spoilt(sent, [](HartFrame& answer) { answer.command = 21; });
      },
      "no answer, only one to command 21");
}

TEST(HartLine, SkipsAnotherModulesAnswer) {
  expectNameAfter([](const Bytes& sent) {
    return spoilt(sent, [](HartFrame& answer) { answer.address = exampleAddress(); });
  });
}

TEST(HartLine, SkipsAnAnswerToAnotherCommand) {
  expectNameAfter([](const Bytes& sent) {
    return spoilt(sent, [](HartFrame& answer) { answer.command = 21; });
  });
}

TEST(HartLine, SkipsAnAnswerToTheOtherMaster) {
  expectNameAfter([](const Bytes& sent) {
    return spoilt(sent,
                  [](HartFrame& answer) { answer.address = answer.address.forMaster(false); });
  });
}

TEST(HartLine, SkipsARequestAndAnAnswerOfTheOtherMaster) {
  expectNameAfter([](const Bytes& sent) {
    const auto other =
        hartRequest(requestIn(sent).address.forMaster(false), requestIn(sent).command);
    return joined({encodeHart(other, 5), encodeHart(hartAnswer(other, {0, 0}, nameData), 5)});
  });
}

TEST(HartLine, SkipsBurstFramesToEitherMaster) {
  for (const bool isPrimary : {true, false}) {
    expectNameAfter([isPrimary](const Bytes& sent) {
      return spoilt(sent, [isPrimary](HartFrame& answer) {
        answer.kind = HartFrameKind::Burst;
        answer.address = answer.address.withBurst(true).forMaster(isPrimary);
      });
    });
  }
}

TEST(HartLine, SkipsItsOwnEcho) {
  expectNameAfter([](const Bytes& sent) { return sent; });
}

TEST(HartLine, SkipsNoise) {
  expectNameAfter([](const Bytes&) { return bytesOf("00 A5 FF 00"); });
}

TEST(HartLine, SkipsADamagedFrameBeforeTheAnswer) {
  expectNameAfter(wrongCheckByte);
}

TEST(HartLine, SkipsADamagedPreamble) {
  expectNameAfter([](const Bytes&) { return bytesOf("FF FF F7"); });
}

TEST(HartLine, IgnoresTrailingBytes) {
  HartBench bench([](const Bytes& sent, std::size_t) -> Reply {
    return {{0ms, joined({sound(sent), bytesOf("00 00")})}};
  });
  bench.identified();
  for (int round = 0; round < 3; ++round) {
    EXPECT_THAT(bench.command(20), ElementsAre(0, 0, 0x41, 0x42));
  }
  EXPECT_THAT(bench.requests(), SizeIs(3));
}

TEST(HartLine, DoesNotWaitForJunkAfterAnAnswer) {
  HartTimings timings = patient();
  timings.linkQuiet = 4s;
  HartBench bench({{20, nameData}}, timings);
  bench.identified();
  const auto begun = std::chrono::steady_clock::now();
  for (int round = 0; round < 3; ++round) {
    bench.slave.sendUnasked(bytesOf("00"));
    EXPECT_THAT(bench.command(20), ElementsAre(0, 0, 0x41, 0x42));
  }
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 4s);
}

TEST(HartLine, TakesAnAnswerWithTwoPreamblesAndOneWithForty) {
  for (const std::size_t preambles : {2U, 40U}) {
    expectName(
        [preambles](const Bytes& sent, std::size_t) -> Reply {
          return {{0ms, encodeHart(hartAnswer(requestIn(sent), {0, 0}, nameData), preambles)}};
        },
        1, patient());
  }
}

TEST(HartLine, TakesAnAnswerThatComesByteByByte) {
  expectName(
      [](const Bytes& sent, std::size_t) {
        Reply reply;
        std::chrono::milliseconds at = 0ms;
        for (const std::uint8_t byte : sound(sent)) reply.push_back({at += 1ms, {byte}});
        return reply;
      },
      1, patient());
}

TEST(HartLine, NeverTakesTheLateAnswerOfOneCommandForAnother) {
  HartBench bench(
      [](const Bytes& sent, std::size_t index) -> Reply {
        const bool isLate = index == 0;
        return {{isLate ? 1000ms : 0ms, moduleAnswer(sent, {{20, nameData}, {24, bytesOf("56")}})}};
      },
      brisk());
  bench.identified();
  EXPECT_THAT(bench.command(20), ElementsAre(0, 0, 0x41, 0x42));
  EXPECT_THAT(bench.command(24), ElementsAre(0, 0, 0x56));
}

TEST(HartLine, NeverTakesALateAnswerForOneToALaterRequest) {
  // The answers count the requests. The first comes after it has been asked for again.
  HartBench bench(
      [](const Bytes& sent, std::size_t index) -> Reply {
        return {
            {index < 2 ? 1000ms : 0ms, answered(sent, {0, 0}, {static_cast<std::uint8_t>(index)})}};
      },
      brisk());
  bench.identified();
  EXPECT_THAT(bench.command(20), ElementsAre(0, 0, 0));
  EXPECT_THAT(bench.command(20), ElementsAre(0, 0, 2));
}

TEST(HartLine, DiscardsWhatWasOnTheLineBeforeTheRequest) {
  HartBench bench({{20, nameData}});
  bench.identified();
  const auto stale = hartRequest(identifiedAddress(), 20);
  bench.slave.sendUnasked(encodeHart(hartAnswer(stale, {0, 0}, bytesOf("66")), 5));
  EXPECT_THAT(bench.command(20), ElementsAre(0, 0, 0x41, 0x42));
}

TEST(HartLine, SaysThatThePortHasGone) {
  HartBench bench([](const Bytes&, std::size_t) -> Reply { return {{0ms, {}, true}}; });
  bench.identified();
  const std::string port = bench.port();
  EXPECT_EQ(errorOf([&] { bench.command(20); }),
            port + ", command 20 at address B0 E2 0A 0B 0C: the port has gone");
  EXPECT_THAT(errorOf([&] { bench.command(20); }), EndsWith(": the port has gone"));
}

TEST(HartLine, GivesUpALineThatIsNeverQuiet) {
  HartTimings timings = patient();
  timings.linkQuiet = 500ms;
  timings.noise = 1500ms;
  HartBench bench({{20, nameData}}, timings);
  bench.slave.makeNoise();
  ASSERT_TRUE(bench.connect());
  EXPECT_THAT(errorOf([&] { bench.identification(); }), EndsWith(": the line does not fall quiet"));
}

TEST(HartLine, IsQuietForRt1BeforeTheFirstRequest) {
  HartTimings timings = patient();
  timings.linkQuiet = 200ms;
  HartBench bench({{20, nameData}}, timings);
  ASSERT_TRUE(bench.connect());
  const auto begun = std::chrono::steady_clock::now();
  bench.identification();
  EXPECT_GE(std::chrono::steady_clock::now() - begun, 190ms);
}

TEST(HartLine, LeavesTheOtherMasterItsTurnAfterEachAnswer) {
  HartTimings timings = patient();
  timings.linkGrant = 60ms;
  HartBench bench({{20, nameData}}, timings);
  bench.identified();
  bench.command(20);
  bench.command(20);
  EXPECT_THAT(bench.slave.silences(), Each(Ge(60ms)));
}

TEST(HartLine, LeavesABurstingModuleRt1AfterEachAnswer) {
  HartTimings timings = patient();
  timings.linkQuiet = 80ms;
  HartBench bench(
      [](const Bytes& sent, std::size_t) -> Reply {
        return {{0ms, spoilt(sent, [](HartFrame& answer) {
                   answer.address = answer.address.withBurst(true);
                 })}};
      },
      timings);
  bench.identified();
  bench.command(20);
  bench.command(20);
  EXPECT_GE(bench.slave.silences().back(), 80ms);
}

TEST(HartLine, SendsAtOnceAfterAnAnswerToTheOtherMaster) {
  HartTimings timings = patient();
  timings.linkQuiet = 15s;
  HartBench bench({{20, nameData}}, timings);
  ASSERT_TRUE(bench.connect());
  std::thread other([&bench] {
    std::this_thread::sleep_for(300ms);
    const auto request = hartRequest(exampleAddress().forMaster(false), 3);
    const Bytes answer = encodeHart(hartAnswer(request, {0, 0}), 5);
    if (::write(bench.slave.line(), answer.data(), answer.size()) < 0) std::abort();
  });
  const auto begun = std::chrono::steady_clock::now();
  bench.identification();
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 12s);
  other.join();
}

}  // namespace
}  // namespace tessara::testing
