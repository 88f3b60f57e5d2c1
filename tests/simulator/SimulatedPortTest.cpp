#include <atomic>
#include <chrono>
#include <filesystem>
#include <future>
#include <stdexcept>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulator/SampleModule.h"
#include "simulator/SerialClient.h"
#include "simulator/SimulatedPort.h"
#include "simulator/TemporaryFolder.h"

namespace tessara {
namespace {

using namespace std::chrono_literals;
using namespace tessara::testing;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr std::size_t firmwareAnswerLength = 7;  // of firmwareAnswer()

/// One healthy exchange of a new client.
void expectHealthy(const SimulatedPort& port) {
  const SerialClient client(port.device());
  EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength), firmwareAnswer());
}

Fault first(FaultEffect effect) {
  return {std::move(effect), faults::At{1}};
}

/// Waits until the condition holds, which other threads bring about.
template <typename Condition>
bool comesTrue(Condition condition) {
  const auto deadline = std::chrono::steady_clock::now() + 20s;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(1ms);
  }
  return true;
}

TEST(SimulatedPort, IsADeviceThatAClientCanOpen) {
  const SimulatedPort port(sampleModule());
  EXPECT_THAT(port.device(), StartsWith("/dev/pts/"));
  expectHealthy(port);
}

TEST(SimulatedPort, AnswersBothFunctionsAndRefusesOthers) {
  const SimulatedPort port(sampleModule());
  const SerialClient client(port.device());
  EXPECT_EQ(client.exchange(serverIdRequest(), 15),
            modbusFrame(defaultAddress, reportServerIdFunction,
                        Bytes{10, 0x01, 0xFF, 0x00, 0x31, 0x00, 0x02, 0x00, 0x0F, 0x80, 0x97}));
  EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength), firmwareAnswer());
  EXPECT_EQ(client.exchange(modbusFrame(defaultAddress, 3, Bytes{0, 4, 0, 1}), 5),
            modbusExceptionFrame(defaultAddress, 3, 1));
}

TEST(SimulatedPort, AssemblesARequestThatArrivesInPieces) {
  const SimulatedPort port(sampleModule());
  const SerialClient client(port.device());
  for (const std::uint8_t byte : readRequest(4, 1)) client.send({byte});
  EXPECT_EQ(client.receive(firmwareAnswerLength), firmwareAnswer());
}

TEST(SimulatedPort, ForgetsHalfARequestAfterTheSilence) {
  const SimulatedPort port(sampleModule());
  const SerialClient client(port.device());
  client.send({defaultAddress, readInputRegistersFunction, 0});
  ASSERT_TRUE(comesTrue([&port] { return port.counters().damaged == 1; }));
  EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength), firmwareAnswer());
}

TEST(SimulatedPort, DoesNotAnswerWrongChecksumsOtherAddressesAndBroadcasts) {
  const SimulatedPort port(sampleModule());
  const SerialClient client(port.device());
  client.send(readRequest(4, 1, 7));
  client.send(serverIdRequest(0));
  Bytes damaged = readRequest(4, 1);
  damaged.back() ^= 1;
  client.send(damaged);
  ASSERT_TRUE(comesTrue([&port] { return port.counters().damaged == 1; }));
  EXPECT_EQ(client.exchange(serverIdRequest(), 15)[1], reportServerIdFunction)
      << "the first answer";
  EXPECT_EQ(port.counters().foreign, 2U);
}

TEST(SimulatedPort, ServesABusOfModules) {
  SimulatedModule second = sampleModule();
  second.address = 7;
  const SimulatedPort port({sampleModule(), second});
  const SerialClient client(port.device());
  EXPECT_EQ(client.exchange(readRequest(4, 1, 7), firmwareAnswerLength), firmwareAnswer(7));
  EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength), firmwareAnswer());
}

TEST(SimulatedPort, CannotServeModulesThatCannotShareALine) {
  EXPECT_THROW(SimulatedPort({sampleModule(), sampleModule()}), std::invalid_argument);
}

TEST(SimulatedPort, LetsClientsComeAndGo) {
  const SimulatedPort port(sampleModule());
  for (int round = 0; round < 200; ++round) expectHealthy(port);
  EXPECT_EQ(port.counters().requests, 200U);
}

TEST(SimulatedPort, HidesFromAClientWhatItsPredecessorLeftUnread) {
  const SimulatedPort port(sampleModule());
  const auto waiting = [](const SerialClient& client) {
    int bytes = 0;
    ::ioctl(client.descriptor(), FIONREAD, &bytes);
    return bytes;
  };
  {
    const SerialClient client(port.device());
    client.send(readRequest(3, 1));
    ASSERT_TRUE(comesTrue([&] { return waiting(client) > 0; }));
  }
  EXPECT_TRUE(comesTrue([&] { return waiting(SerialClient(port.device())) == 0; }));
  expectHealthy(port);
}

TEST(SimulatedPort, HidesFromAClientALateReplyThatCameWithoutAClient) {
  SimulatedPort port(sampleModule());
  port.setFaults({first(faults::LateReply{50ms})});
  SerialClient(port.device()).send(readRequest(3, 1));
  ASSERT_TRUE(comesTrue([&port] { return port.counters().requests == 1; }));
  std::this_thread::sleep_for(100ms);
  expectHealthy(port);
}

TEST(SimulatedPort, NoReplyLeavesOutOneAnswer) {
  SimulatedPort port(sampleModule());
  port.setFaults({first(faults::NoReply{})});
  const SerialClient client(port.device());
  client.send(serverIdRequest());
  EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength), firmwareAnswer());
}

TEST(SimulatedPort, LateReplyComesLater) {
  SimulatedPort port(sampleModule());
  port.setFaults({first(faults::LateReply{200ms})});
  const SerialClient client(port.device());
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength), firmwareAnswer());
  EXPECT_GE(std::chrono::steady_clock::now() - start, 200ms);
}

TEST(SimulatedPort, LateReplyDoesNotHoldUpTheAnswerToARepeat) {
  SimulatedPort port(sampleModule());
  port.setFaults({first(faults::LateReply{500ms})});
  const SerialClient client(port.device());
  client.send(readRequest(3, 1));
  EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength), firmwareAnswer());
  EXPECT_EQ(client.receive(firmwareAnswerLength),
            modbusFrame(defaultAddress, readInputRegistersFunction, Bytes{2, 0x10, 0x00}));
}

TEST(SimulatedPort, SpoilsAnswersAsOrdered) {
  SimulatedPort port(sampleModule());
  const SerialClient client(port.device());
  const auto answer = [&](FaultEffect effect, std::size_t count) {
    port.setFaults({first(std::move(effect))});
    return client.exchange(readRequest(4, 1), count);
  };
  EXPECT_FALSE(decodeModbusRequest(answer(faults::BadChecksum{}, firmwareAnswerLength)));
  EXPECT_EQ(answer(faults::WrongAddress{9}, firmwareAnswerLength), firmwareAnswer(9));
  EXPECT_EQ(answer(faults::ExceptionReply{4}, 5),
            modbusExceptionFrame(defaultAddress, readInputRegistersFunction, 4));
  EXPECT_THAT(answer(faults::Noise{{1, 2, 3}}, 3 + firmwareAnswerLength),
              SizeIs(3 + firmwareAnswerLength));
  EXPECT_THAT(answer(faults::Echo{}, 8 + firmwareAnswerLength), SizeIs(8 + firmwareAnswerLength));
  EXPECT_THAT(answer(faults::CutOff{3}, 3), SizeIs(3));
  EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength), firmwareAnswer())
      << "only 3 came";
}

TEST(SimulatedPort, UnplugsAfterAnAnswerThatTheClientStillGets) {
  SimulatedPort port(sampleModule());
  port.setFaults({{faults::Unplug{}, faults::At{2}}});
  const SerialClient client(port.device());
  EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength), firmwareAnswer());
  EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength), firmwareAnswer());
  EXPECT_TRUE(client.isHungUp());
  EXPECT_TRUE(comesTrue([&port] { return port.device().empty(); }));
}

TEST(SimulatedPort, UnplugsDuringAnAnswer) {
  SimulatedPort port(sampleModule());
  port.setFaults({first(faults::Unplug{3, {}})});
  const SerialClient client(port.device());
  EXPECT_THAT(client.exchange(readRequest(4, 1), firmwareAnswerLength), SizeIs(3));
  EXPECT_TRUE(client.isHungUp());
}

TEST(SimulatedPort, UnplugsWhileTheClientWaits) {
  SimulatedPort port(sampleModule());
  port.setFaults({first(faults::Unplug{0, {}})});
  const SerialClient client(port.device());
  EXPECT_THAT(client.exchange(readRequest(4, 1), firmwareAnswerLength), IsEmpty());
  EXPECT_TRUE(client.isHungUp());
}

TEST(SimulatedPort, ComesBackByItselfIfOrdered) {
  std::atomic<int> changes = 0;
  SimulatedPort port(sampleModule(), {.deviceChanged = [&changes](const auto& device) {
                       changes += device.empty() ? 1 : 100;
                     }});
  port.setFaults({first(faults::Unplug{0, 20ms})});
  const SerialClient client(port.device());
  client.send(readRequest(4, 1));
  EXPECT_TRUE(client.isHungUp());
  ASSERT_TRUE(comesTrue([&changes] { return changes == 101; }));
  expectHealthy(port);
}

TEST(SimulatedPort, AnswersEachTimeItComesBack) {
  SimulatedPort port(sampleModule());
  const auto isBack = [&port] { return !port.device().empty(); };
  for (int round = 0; round < 50; ++round) {
    port.setFaults({first(faults::Unplug{0, 1ms})});
    const SerialClient client(port.device());
    client.send(readRequest(4, 1));
    EXPECT_TRUE(client.isHungUp());
    ASSERT_TRUE(comesTrue(isBack));
    expectHealthy(port);
  }
}

TEST(SimulatedPort, IsNeverSeenUnpluggedIfItComesBackAtOnce) {
  SimulatedPort port(sampleModule());
  for (int round = 0; round < 50; ++round) {
    port.setFaults({first(faults::Unplug{0, 0ms})});
    const SerialClient client(port.device());
    client.send(readRequest(4, 1));
    EXPECT_TRUE(client.isHungUp());
    ASSERT_FALSE(port.device().empty());
    expectHealthy(port);
  }
}

TEST(SimulatedPort, CanBeUnpluggedAndReplugged) {
  SimulatedPort port(sampleModule());
  for (int round = 0; round < 20; ++round) {
    const SerialClient client(port.device());
    const std::string device = port.device();
    port.unplug();
    port.unplug();
    EXPECT_TRUE(client.isHungUp());
    EXPECT_THAT(client.receive(1), IsEmpty());
    EXPECT_THROW(client.send({0}), std::runtime_error);
    EXPECT_EQ(port.device(), "");
    EXPECT_FALSE(std::filesystem::exists(device));
    port.plug();
    port.plug();
    expectHealthy(port);
  }
}

TEST(SimulatedPort, LosesUnsentAnswersWhenItIsUnplugged) {
  SimulatedPort port(sampleModule());
  port.setFaults({first(faults::LateReply{100ms})});
  SerialClient(port.device()).send(readRequest(3, 1));
  ASSERT_TRUE(comesTrue([&port] { return port.counters().requests == 1; }));
  port.unplug();
  port.plug();
  const SerialClient client(port.device());
  std::this_thread::sleep_for(200ms);
  EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength), firmwareAnswer());
}

TEST(SimulatedPort, EndsAtOnceWithALateReplyPending) {
  const auto start = std::chrono::steady_clock::now();
  {
    SimulatedPort port(sampleModule());
    port.setFaults({first(faults::LateReply{1h})});
    SerialClient(port.device()).send(readRequest(4, 1));
    ASSERT_TRUE(comesTrue([&port] { return port.counters().requests == 1; }));
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, 60s);
}

TEST(SimulatedPort, KeepsALinkThroughReplugging) {
  const TemporaryFolder folder;
  const auto link = folder.path() / "ttyS9";
  {
    SimulatedPort port(sampleModule(), {.link = link});
    EXPECT_EQ(port.device(), link.string());
    expectHealthy(port);
    port.unplug();
    EXPECT_FALSE(std::filesystem::is_symlink(link));
    port.plug();
    EXPECT_EQ(port.device(), link.string());
    expectHealthy(port);
  }
  EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(SimulatedPort, ReplacesALeftoverLink) {
  const TemporaryFolder folder;
  std::filesystem::create_symlink("/dev/nowhere", folder.path() / "ttyS9");
  const SimulatedPort port(sampleModule(), {.link = folder.path() / "ttyS9"});
  expectHealthy(port);
}

TEST(SimulatedPort, DoesNotReplaceAFileByALink) {
  const TemporaryFolder folder;
  folder.write("ttyS9", "precious");
  EXPECT_THROW(SimulatedPort(sampleModule(), {.link = folder.path() / "ttyS9"}),
               std::filesystem::filesystem_error);
  EXPECT_EQ(folder.read("ttyS9"), "precious");
}

TEST(SimulatedPort, TakesNewFaultsAndRegistersWhileItRuns) {
  SimulatedPort port(sampleModule());
  const SerialClient client(port.device());
  port.setRegister(defaultAddress, 4, 0x5678);
  EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength),
            modbusFrame(defaultAddress, readInputRegistersFunction, Bytes{2, 0x56, 0x78}));
  port.setFaults(defaultAddress, {first(faults::ExceptionReply{6})});
  EXPECT_THAT(client.exchange(readRequest(4, 1), 5), SizeIs(5));
  port.setFaults({});
  EXPECT_THAT(client.exchange(readRequest(4, 1), firmwareAnswerLength),
              SizeIs(firmwareAnswerLength));
}

TEST(SimulatedPort, RefusesOrdersForUnknownModules) {
  SimulatedPort port(sampleModule());
  EXPECT_THROW(port.setFaults(7, {}), std::out_of_range);
  EXPECT_THROW(port.setRegister(7, 1, 1), std::out_of_range);
  EXPECT_THROW(port.setFaults({{faults::Echo{}, faults::At{0}}}), std::invalid_argument);
  expectHealthy(port);
}

TEST(SimulatedPort, LogsRequests) {
  const SimulatedPort port(sampleModule());
  expectHealthy(port);
  const auto log = port.log();
  ASSERT_THAT(log, SizeIs(1));
  EXPECT_EQ(log.front().request.function, readInputRegistersFunction);
  EXPECT_EQ(log.front().answer, firmwareAnswer());
}

TEST(SimulatedPort, MayBeUsedFromItsOwnNotification) {
  SimulatedPort* self = nullptr;
  std::promise<std::string> seen;
  SimulatedPort port(sampleModule(), {.deviceChanged = [&](const auto& device) {
                       if (!device.empty()) seen.set_value(self->device());
                     }});
  self = &port;
  port.unplug();
  port.plug();
  EXPECT_EQ(seen.get_future().get(), port.device());
}

TEST(SimulatedPort, CanBeControlledWhileItAnswers) {
  SimulatedPort port(sampleModule());
  std::atomic<bool> done = false;
  std::thread orders([&] {
    while (!done) {
      port.setFaults({{faults::LateReply{1ms}, faults::Every{2}}});
      port.setRegister(defaultAddress, 100, 1);
      EXPECT_EQ(port.counters().damaged, 0U);
      EXPECT_LE(port.log().size(), 100U);
    }
  });
  {
    const SerialClient client(port.device());
    for (int round = 0; round < 100; ++round) {
      EXPECT_EQ(client.exchange(readRequest(4, 1), firmwareAnswerLength), firmwareAnswer());
    }
  }
  done = true;
  orders.join();
}

}  // namespace
}  // namespace tessara
