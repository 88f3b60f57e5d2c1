#include <array>
#include <cstdio>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>

#include "simulator/SampleModule.h"
#include "simulator/SimulatedPort.h"

namespace tessara {
namespace {

using namespace std::chrono_literals;
using namespace tessara::testing;
using ::testing::HasSubstr;

struct Outcome {
  std::string output;
  int exitCode = -1;
};

/// One poll by mbpoll, an independent master.
Outcome mbpoll(const SimulatedPort& port, const std::string& options) {
  const std::string command =
      "mbpoll -m rtu -a 192 -b 19200 -P even -1 " + options + " " + port.device() + " 2>&1";
  Outcome outcome;
  std::FILE* pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) return outcome;
  std::array<char, 1024> piece{};
  std::size_t length = 0;
  while ((length = std::fread(piece.data(), 1, piece.size(), pipe)) > 0) {
    outcome.output.append(piece.data(), length);
  }
  outcome.exitCode = WEXITSTATUS(::pclose(pipe));
  return outcome;
}

/// Options for `count` input registers from `first`, which mbpoll numbers from 1.
std::string inputRegisters(int first, int count) {
  return "-t 3:hex -r " + std::to_string(first + 1) + " -c " + std::to_string(count);
}

class MbpollTest : public ::testing::TestWithParam<bool> {
 protected:
  SimulatedPort port_{sampleModule(), {.paced = GetParam()}};
};

INSTANTIATE_TEST_SUITE_P(Pace, MbpollTest, ::testing::Bool(),
                         [](const auto& test) { return test.param ? "Paced" : "AtOnce"; });

TEST_P(MbpollTest, ReadsRegisters) {
  const Outcome outcome = mbpoll(port_, inputRegisters(3, 2));
  EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
  EXPECT_THAT(outcome.output, HasSubstr("[4]: \t0x1000"));
  EXPECT_THAT(outcome.output, HasSubstr("[5]: \t0x1234"));
}

TEST_P(MbpollTest, ReadsTheIdentification) {
  const Outcome outcome = mbpoll(port_, "-u");
  EXPECT_EQ(outcome.exitCode, 0) << outcome.output;
  EXPECT_THAT(outcome.output, HasSubstr("0x01"));
  EXPECT_THAT(outcome.output, HasSubstr("On"));
}

TEST_P(MbpollTest, IsRefusedARegisterThatIsNotThere) {
  EXPECT_THAT(mbpoll(port_, inputRegisters(99, 1)).output, HasSubstr("Illegal data address"));
}

TEST_P(MbpollTest, IsRefusedAnotherFunction) {
  EXPECT_THAT(mbpoll(port_, "-t 4 -r 5 -c 1").output, HasSubstr("Illegal function"));
}

TEST_P(MbpollTest, RecognisesEachFault) {
  const auto output = [this](FaultEffect effect) {
    port_.setFaults({{std::move(effect), faults::Every{1}}});
    return mbpoll(port_, inputRegisters(4, 1)).output;
  };
  EXPECT_THAT(output(faults::NoReply{}), HasSubstr("timed out"));
  EXPECT_THAT(output(faults::BadChecksum{}), HasSubstr("Invalid CRC"));
  EXPECT_THAT(output(faults::WrongAddress{5}), HasSubstr("not from requested slave"));
  EXPECT_THAT(output(faults::ExceptionReply{4}), HasSubstr("Slave device or server failure"));
  EXPECT_THAT(output(faults::CutOff{4}), HasSubstr("timed out"));
}

TEST_P(MbpollTest, ComesAndGoes) {
  for (int round = 0; round < 10; ++round) {
    EXPECT_EQ(mbpoll(port_, inputRegisters(4, 1)).exitCode, 0) << round;
  }
}

}  // namespace
}  // namespace tessara
