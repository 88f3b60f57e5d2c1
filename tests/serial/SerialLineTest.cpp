#include <array>
#include <atomic>
#include <chrono>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include "serial/LineError.h"
#include "serial/OtherProcess.h"
#include "serial/PortError.h"
#include "serial/PseudoTerminal.h"
#include "serial/SerialLine.h"
#include "serial/linux/TerminalRate.h"

namespace tessara::testing {
namespace {

using namespace std::chrono_literals;
using ::testing::ElementsAre;

using Clock = SerialLine::Clock;
using LineBytes = std::vector<std::uint8_t>;

/// Long enough for whatever must happen on a loaded machine.
Clock::time_point later() {
  return Clock::now() + 20s;
}

/// Sends bytes from the other end of the line.
void send(const PseudoTerminal& port, const LineBytes& bytes) {
  ASSERT_EQ(::write(port.line(), bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

LineBytes readFrom(SerialLine& line, Clock::time_point deadline) {
  std::array<std::uint8_t, 64> buffer{};
  const std::size_t length = line.read(buffer, deadline);
  return {buffer.begin(), buffer.begin() + static_cast<std::ptrdiff_t>(length)};
}

/// What `access` fails with; nothing if it does not.
template <class Access>
std::optional<LineProblem> problemOf(Access access) {
  try {
    access();
  } catch (const LineError& error) {
    return error.problem();
  }
  return std::nullopt;
}

std::optional<PortProblem> problemOfOpening(const std::string& device) {
  try {
    const SerialLine line(device);
  } catch (const PortError& error) {
    return error.problem();
  }
  return std::nullopt;
}

::termios settingsOf(const PseudoTerminal& port) {
  ::termios settings{};
  EXPECT_EQ(::tcgetattr(port.terminal(), &settings), 0);
  return settings;
}

TEST(SerialLine, IsHeldByOneOwnerAtATime) {
  const PseudoTerminal port;
  {
    const SerialLine line(port.device());
    EXPECT_EQ(problemOfOpening(port.device()), PortProblem::InUse);
  }
  EXPECT_EQ(problemOfOpening(port.device()), std::nullopt);
}

TEST(SerialLine, KeepsAnotherProcessOut) {
  const PseudoTerminal port;
  const SerialLine line(port.device());
  EXPECT_EQ(inAnotherProcess(
                [&] { return problemOfOpening(port.device()) == PortProblem::InUse ? 0 : 1; }),
            0);
}

TEST(SerialLine, DistinguishesWhyAPortCannotBeOpened) {
  const PseudoTerminal port;
  EXPECT_EQ(problemOfOpening("/dev/no-such-port"), PortProblem::NotThere);
  EXPECT_EQ(problemOfOpening("/dev/null"), PortProblem::Refused);
  ASSERT_EQ(::chmod(port.device().c_str(), 0), 0);
  EXPECT_EQ(inUnprivilegedProcess([&] {
              return problemOfOpening(port.device()) == PortProblem::NoPermission ? 0 : 1;
            }),
            0);
}

TEST(SerialLine, ChangesNothingByOpening) {
  const PseudoTerminal port;
  const PortSettings before = port.settings();
  const SerialLine line(port.device());
  EXPECT_EQ(port.settings(), before);
}

TEST(SerialLine, HandsThePortBackAsItWas) {
  const PseudoTerminal port;
  const PortSettings before = port.settings();
  {
    SerialLine line(port.device());
    line.configure({.rate = 1200, .dataBits = 7, .stopBits = 2});
    EXPECT_NE(port.settings(), before);
  }
  EXPECT_EQ(port.settings(), before);
}

TEST(SerialLine, SetsRawBytesInTheOrderedFormat) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  line.configure({.rate = 9600, .dataBits = 7, .stopBits = 2, .checksParity = true});
  ::termios settings = settingsOf(port);
  EXPECT_EQ(::cfgetospeed(&settings), static_cast<::speed_t>(B9600));
  EXPECT_EQ(::cfgetispeed(&settings), static_cast<::speed_t>(B9600));
  // A pseudo-terminal has 8 data bits, whatever is set.
  EXPECT_EQ(settings.c_cflag & (CSTOPB | CRTSCTS), static_cast<::tcflag_t>(CSTOPB));
  EXPECT_EQ(settings.c_iflag & (IXON | IXOFF | ICRNL | ISTRIP | PARMRK | INPCK),
            static_cast<::tcflag_t>(INPCK));
  EXPECT_EQ(settings.c_lflag & (ICANON | ECHO | ISIG), 0U);
  EXPECT_EQ(settings.c_oflag & OPOST, 0U);
  line.configure({});
  settings = settingsOf(port);
  EXPECT_EQ(::cfgetospeed(&settings), static_cast<::speed_t>(B19200));
  EXPECT_EQ(settings.c_cflag & CSTOPB, 0U);
  EXPECT_EQ(settings.c_iflag & INPCK, 0U);
}

TEST(SerialLine, DoesWithoutParityOnAPortThatRefusesIt) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  for (const Parity parity : {Parity::Even, Parity::Odd, Parity::Even}) {
    EXPECT_NO_THROW(line.configure({.parity = parity}));
  }
}

TEST(SerialLine, HasAnyRateThatThePortCanHave) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  // Some are constants of the terminal interface, some are not, and the number of some is the value
  // of another one's constant: 13 stands for 9600, 4098 for 115200.
  for (const std::int32_t rate :
       {13, 300, 4098, 14400, 19200, 28800, 56000, 76800, 115200, 250000, 4000000}) {
    line.configure({.rate = rate});
    EXPECT_EQ(terminalRate(port.terminal()), static_cast<std::uint32_t>(rate));
  }
}

TEST(SerialLine, LeavesNothingOfAnOddRateToTheNextOne) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  line.configure({.rate = 14400});
  line.configure({.rate = 9600});
  const ::termios settings = settingsOf(port);
  EXPECT_EQ(::cfgetospeed(&settings), static_cast<::speed_t>(B9600));
  EXPECT_EQ(settings.c_cflag & CIBAUD, 0U);
}

TEST(SerialLine, RefusesARateThatNoPortHas) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  for (const std::int32_t rate : {0, -9600}) {
    try {
      line.configure({.rate = rate});
      ADD_FAILURE() << rate;
    } catch (const PortError& error) {
      EXPECT_EQ(error.problem(), PortProblem::Refused);
      EXPECT_EQ(std::string(error.what()),
                "cannot be opened at " + std::to_string(rate) + " bit/s: no such rate");
    }
  }
}

TEST(SerialLine, DiscardsByConfiguringWhatCameBefore) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  send(port, {1, 2, 3});
  ASSERT_TRUE(line.waitForInput(later()));
  line.configure({});
  EXPECT_FALSE(line.waitForInput(Clock::now()));
}

TEST(SerialLine, ReadsWhatHasComeAsSoonAsAnythingHas) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  line.configure({});
  send(port, {1, 2, 3});
  EXPECT_THAT(readFrom(line, later()), ElementsAre(1, 2, 3));
  std::thread sender([&] {
    std::this_thread::sleep_for(50ms);
    send(port, {4});
  });
  EXPECT_THAT(readFrom(line, later()), ElementsAre(4));
  sender.join();
}

TEST(SerialLine, ReadsNoMoreThanTheBufferHolds) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  line.configure({});
  send(port, {1, 2, 3});
  std::array<std::uint8_t, 2> buffer{};
  EXPECT_EQ(line.read(buffer, later()), 2U);
  EXPECT_THAT(buffer, ElementsAre(1, 2));
  EXPECT_THAT(readFrom(line, later()), ElementsAre(3));
}

TEST(SerialLine, GivesUpReadingAtTheDeadline) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  const auto begun = Clock::now();
  EXPECT_THAT(readFrom(line, begun + 50ms), ElementsAre());
  EXPECT_FALSE(line.waitForInput(begun + 100ms));
  EXPECT_GE(Clock::now() - begun, 100ms);
}

TEST(SerialLine, ReadsWhatIsThereEvenAfterTheDeadline) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  line.configure({});
  send(port, {1});
  ASSERT_TRUE(line.waitForInput(later()));
  EXPECT_TRUE(line.waitForInput(Clock::now() - 1s));
  EXPECT_THAT(readFrom(line, Clock::now() - 1s), ElementsAre(1));
}

TEST(SerialLine, DiscardsTheInputThatHasCome) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  line.configure({});
  EXPECT_NO_THROW(line.discardInput());
  send(port, {1, 2, 3});
  ASSERT_TRUE(line.waitForInput(later()));
  line.discardInput();
  EXPECT_FALSE(line.waitForInput(Clock::now()));
}

TEST(SerialLine, WritesToTheOtherEnd) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  line.configure({});
  EXPECT_EQ(line.write(LineBytes{1, 2, 3}, later()), 3U);
  EXPECT_TRUE(line.drain(later()));
  std::array<std::uint8_t, 8> received{};
  EXPECT_EQ(::read(port.line(), received.data(), received.size()), 3);
  EXPECT_EQ(received[2], 3);
}

TEST(SerialLine, GivesUpWritingToAStoppedLineAtTheDeadline) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  ASSERT_EQ(::tcflow(port.terminal(), TCOOFF), 0);
  const auto begun = Clock::now();
  EXPECT_EQ(line.write(LineBytes{1, 2, 3}, begun + 50ms), 0U);
  EXPECT_GE(Clock::now() - begun, 50ms);
  ASSERT_EQ(::tcflow(port.terminal(), TCOON), 0);
}

TEST(SerialLine, CountsWhatAFullLineHasTaken) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  line.configure({});
  const LineBytes much(1'000'000, 7);
  const std::size_t taken = line.write(much, Clock::now() + 100ms);
  EXPECT_GT(taken, 0U);
  EXPECT_LT(taken, much.size());
}

TEST(SerialLine, SaysThatTheOtherEndHasHungUp) {
  PseudoTerminal port;
  SerialLine line(port.device());
  line.configure({});
  port.unplug();
  EXPECT_EQ(problemOf([&] { (void)readFrom(line, later()); }), LineProblem::Gone);
  EXPECT_EQ(problemOf([&] { line.write(LineBytes{1}, later()); }), LineProblem::Gone);
  EXPECT_EQ(problemOf([&] { line.discardInput(); }), LineProblem::Gone);
  EXPECT_EQ(problemOf([&] { line.drain(later()); }), LineProblem::Gone);
}

TEST(SerialLine, EndsAWaitAtOnceWhenTheOtherEndHangsUp) {
  PseudoTerminal port;
  SerialLine line(port.device());
  std::thread other([&port] {
    std::this_thread::sleep_for(50ms);
    port.unplug();
  });
  const auto begun = Clock::now();
  EXPECT_EQ(problemOf([&] { (void)readFrom(line, begun + 60s); }), LineProblem::Gone);
  EXPECT_LT(Clock::now() - begun, 30s);
  other.join();
}

TEST(SerialLine, CanBeClosedAfterTheOtherEndHasHungUp) {
  PseudoTerminal port;
  std::optional<SerialLine> line(port.device());
  port.unplug();
  EXPECT_NO_THROW(line.reset());
  EXPECT_EQ(problemOfOpening(port.device()), PortProblem::NotThere);
}

TEST(SerialLine, EndsAWaitThatIsCancelledByAnotherThread) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  std::thread other([&line] {
    std::this_thread::sleep_for(50ms);
    line.cancel();
  });
  const auto begun = Clock::now();
  EXPECT_EQ(problemOf([&] { (void)readFrom(line, begun + 60s); }), LineProblem::Cancelled);
  EXPECT_LT(Clock::now() - begun, 30s);
  other.join();
}

TEST(SerialLine, StaysCancelled) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  line.cancel();
  line.cancel();
  send(port, {1});
  EXPECT_EQ(problemOf([&] { (void)readFrom(line, later()); }), LineProblem::Cancelled);
  EXPECT_EQ(problemOf([&] { (void)line.waitForInput(later()); }), LineProblem::Cancelled);
  EXPECT_EQ(problemOf([&] { line.write(LineBytes{1}, later()); }), LineProblem::Cancelled);
}

TEST(SerialLine, HasNoControlLinesOnAPseudoTerminal) {
  const PseudoTerminal port;
  SerialLine line(port.device());
  EXPECT_FALSE(line.setRts(true));
  EXPECT_FALSE(line.setDtr(false));
  EXPECT_FALSE(line.hasCarrier());
}

TEST(SerialLine, LeavesNothingOpen) {
  const PseudoTerminal port;
  const int before = ::dup(0);
  ::close(before);
  for (int round = 0; round < 3; ++round) {
    SerialLine(port.device()).configure({});
    EXPECT_EQ(problemOfOpening("/dev/null"), PortProblem::Refused);
  }
  const int after = ::dup(0);
  ::close(after);
  EXPECT_EQ(after, before);
}

}  // namespace
}  // namespace tessara::testing
