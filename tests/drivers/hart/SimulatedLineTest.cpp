// The driver against the simulated modem, through a virtual port.

#include <memory>
#include <ostream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/hart/HartBench.h"
#include "simulator/LinePort.h"
#include "simulator/hart/HartLine.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;

/// A simulated module behind a virtual port, and a driver.
class SimulatedBench {
 public:
  explicit SimulatedBench(std::vector<HartMisbehaviour> faults = {},
                          const HartTimings& timings = brisk(), SimulatedPortOptions options = {})
      : port(std::make_unique<HartLine>(module(std::move(faults))), std::move(options)),
        ports({{3, port.device()}}),
        driver(ports, {.timings = timings}) {}

  /// The answer to command 20 in a new connection, after the identity has been read.
  DeviceWords name() {
    std::int16_t comPort = 3;
    std::int32_t rate = 1200;
    std::uint8_t address = 0;
    if (!driver.ConnectWithSerialDevice(comPort, rate)) {
      throw std::runtime_error(driver.connectFailure());
    }
    driver.ReadDeviceIdentifier(address);
    return driver.ReadInputRegisters(0, 20, 1, 12);
  }

  LinePort port;
  NamedPorts ports;
  HartDriver driver;

 private:
  static SimulatedHartModule module(std::vector<HartMisbehaviour> faults) {
    SimulatedHartModule module;
    module.identity = exampleIdentity();
    module.answers = {{20, bytesOf("41 42")}};
    module.faults = std::move(faults);
    return module;
  }
};

/// The identity is request 1; the fault falls on the name.
std::vector<HartMisbehaviour> onTheName(const HartEffect& effect) {
  return {{effect, faults::At{2}}};
}

std::vector<HartMisbehaviour> onEachName(const HartEffect& effect) {
  std::vector<HartMisbehaviour> faults;
  for (std::uint64_t request = 2; request <= 5; ++request) {
    faults.push_back({effect, faults::At{request}});
  }
  return faults;
}

TEST(SimulatedHart, IsReadWhenHealthy) {
  EXPECT_THAT(SimulatedBench({}, patient()).name(), ElementsAre(0, 0, 0x41, 0x42));
}

struct Survived {
  const char* name;
  HartEffect effect;
};

void PrintTo(const Survived& fault, std::ostream* out) {
  *out << fault.name;
}

class SurvivedFault : public ::testing::TestWithParam<Survived> {};

TEST_P(SurvivedFault, LeavesTheNameUnchanged) {
  SimulatedBench bench(onTheName(GetParam().effect));
  EXPECT_THAT(bench.name(), ElementsAre(0, 0, 0x41, 0x42));
}

INSTANTIATE_TEST_SUITE_P(
    SimulatedHart, SurvivedFault,
    ::testing::Values(
        Survived{"NoReply", faults::NoReply{}}, Survived{"LateReply", faults::LateReply{1000ms}},
        Survived{"BadCheckByte", faults::BadChecksum{}},
        Survived{"WrongAddress", faults::WrongAddress{0x77}},
        Survived{"WrongCommand", faults::WrongCommand{21}}, Survived{"CutOff", faults::CutOff{10}},
        Survived{"Noise", faults::Noise{{0x00, 0xFF, 0x55}}},
        Survived{"NoiseLikeAFrame", faults::Noise{{0xFF, 0xFF, 0x86, 0x00}}},
        Survived{"TrailingNoise", faults::TrailingNoise{{0x00, 0x00}}},
        Survived{"Echo", faults::Echo{}},
        Survived{"CommunicationError", faults::CommunicationError{0x08}},
        Survived{"DelayedAnswer", faults::DelayedAnswer{3}},
        Survived{"OtherMaster", faults::OtherMaster{}},
        Survived{"BurstToPrimary", faults::BurstFrame{true}},
        Survived{"BurstToSecondary", faults::BurstFrame{false}},
        Survived{"FewPreambles", faults::Preambles{1}},
        Survived{"ManyPreambles", faults::Preambles{40}},
        Survived{"ShortGap", faults::Gap{12, 20ms}}, Survived{"LongGap", faults::Gap{12, 1500ms}}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(SimulatedHart, ReportsAColdStart) {
  EXPECT_THAT(SimulatedBench(onTheName(faults::ColdStart{}), patient()).name(),
              ElementsAre(0, 0x20, 0x41, 0x42));
}

/// How reading the name ends with that fault on each try.
std::string failureWith(const HartEffect& effect) {
  HartTimings timings = brisk();
  timings.hostMargin = 150ms;
  SimulatedBench bench(onEachName(effect), timings);
  return errorOf([&] { bench.name(); });
}

TEST(SimulatedHart, SaysWhyItCannotBeRead) {
  EXPECT_THAT(failureWith(faults::ResponseCode{32}), EndsWith(": response code 32: busy"));
  EXPECT_THAT(failureWith(faults::ResponseCode{64}),
              EndsWith(": response code 64: command not implemented"));
  EXPECT_THAT(failureWith(faults::NoReply{}), EndsWith(": no answer within 5 ms, asked 3 times"));
  EXPECT_THAT(failureWith(faults::BadChecksum{}),
              EndsWith(": the answer has a wrong check byte, asked 3 times"));
  EXPECT_THAT(failureWith(faults::CutOff{15}), EndsWith(": the answer broke off, asked 3 times"));
  EXPECT_THAT(failureWith(faults::CommunicationError{0x48}),
              EndsWith(": the module reports communication error C8: parity, check byte, asked 3 "
                       "times"));
  EXPECT_THAT(failureWith(faults::WrongAddress{0x77}),
              EndsWith(": no answer, only one from address B0 E2 0A 0B 77, asked 3 times"));
}

TEST(SimulatedHart, ReportsUnpluggingAndIsReadWhenItIsBack) {
  SimulatedBench bench(onTheName(faults::Unplug{3, std::nullopt}), patient());
  EXPECT_THAT(errorOf([&] { bench.name(); }), EndsWith(": the port has gone"));
  EXPECT_EQ(bench.port.device(), "");
  EXPECT_THAT(errorOf([&] { bench.name(); }), EndsWith(" is not there"));
  bench.port.plug();
  bench.ports.put(3, bench.port.device());
  EXPECT_THAT(bench.name(), ElementsAre(0, 0, 0x41, 0x42));
}

TEST(SimulatedHart, TakesItsTimeOnAPacedLine) {
  SimulatedBench bench({}, {}, {.paced = true});
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_THAT(bench.name(), ElementsAre(0, 0, 0x41, 0x42));
  // 25 + 34 and 14 + 18 characters.
  EXPECT_GE(std::chrono::steady_clock::now() - begun, HartTimings().characters(91));
}

}  // namespace
}  // namespace tessara::testing
