#include <atomic>
#include <chrono>
#include <functional>
#include <string>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drivers/nfc/FaultOf.h"
#include "drivers/nfc/NfcSample.h"
#include "drivers/nfc/TagCommands.h"
#include "drivers/nfc/Twn4Link.h"
#include "simulator/LinePort.h"
#include "simulator/VirtualPort.h"

namespace tessara {
namespace {

using namespace std::chrono_literals;
using testing::listedUid;

constexpr const char* versionLine = "001A54574E342F42312E30362F434346342E35312F505253312E3034\r";

/// A device that answers each line as the test says.
class ScriptedDevice final : public SimulatedLine {
 public:
  using Script = std::function<std::string(const std::string& line)>;

  explicit ScriptedDevice(Script script) : script_(std::move(script)) {}

  std::vector<SimulatedAnswer> receive(std::span<const std::uint8_t> bytes) override {
    std::vector<SimulatedAnswer> answers;
    for (const std::uint8_t byte : bytes) {
      if (byte != '\r') {
        line_ += static_cast<char>(byte);
        continue;
      }
      const std::string text = script_(std::exchange(line_, {}));
      answers.push_back({Bytes(text.begin(), text.end()), {}});
    }
    return answers;
  }
  std::optional<SimulatedAnswer> silence() override { return std::nullopt; }
  [[nodiscard]] bool isFrameOpen() const override { return false; }
  void forgetOpenFrame() override {}

 private:
  Script script_;
  std::string line_;
};

/// Answers as a reader does until it is asked to send something to a tag.
std::string reader(const std::string& line) {
  if (line == "0004FF") return versionLine;
  if (line == "050010") return "0001824008E002264455667788\r";
  return "00\r";
}

class Twn4Links : public ::testing::Test {
 protected:
  void plugIn(ScriptedDevice::Script script) {
    port.emplace(std::make_unique<ScriptedDevice>(std::move(script)));
    link.emplace(port->device(), 115200, 300ms);
  }
  SeenFault faultOfSelection() {
    return faultOf([this] { (void)link->selectTag(); });
  }

  // Used by scripts on the port's thread, which ends before these do.
  std::vector<std::string> lines;
  std::atomic<bool> isThere = true;

  std::optional<LinePort> port;
  std::optional<Twn4Link> link;
};

TEST_F(Twn4Links, AskForTheVersionAndForModuleTagsAndSearch) {
  plugIn([&](const std::string& line) {
    lines.push_back(line);
    return reader(line);
  });
  EXPECT_EQ(link->selectTag(), listedUid);
  EXPECT_THAT(lines, ::testing::ElementsAre("0004FF", "05020000000004000000", "050010"));
}

TEST_F(Twn4Links, SwitchTheFieldOffAtTheEnd) {
  plugIn([&](const std::string& line) {
    lines.push_back(line);
    return reader(line);
  });
  link->selectTag();
  link.reset();
  port.reset();
  EXPECT_EQ(lines.back(), "0501");
}

TEST_F(Twn4Links, DiscardLateAnswers) {
  plugIn([](const std::string& line) {
    return line == "0004FF" ? "0000\r00010143\r" + reader(line) : reader(line);
  });
  EXPECT_EQ(link->selectTag(), listedUid);
}

TEST_F(Twn4Links, RefuseOtherDevices) {
  plugIn([](const std::string&) { return "ERROR\r"; });
  const auto fault = faultOfSelection();
  EXPECT_EQ(fault.kind, NfcFaultKind::ReaderRefusal);
  EXPECT_EQ(fault.text, "the device on the port is not a TWN4 reader with Simple Protocol");
}

TEST_F(Twn4Links, RefuseReadersWithoutSimpleProtocol) {
  plugIn([](const std::string&) { return "000454574E34\r"; });
  EXPECT_EQ(faultOfSelection().kind, NfcFaultKind::ReaderRefusal);
}

TEST_F(Twn4Links, SayThatNothingAnswers) {
  plugIn([](const std::string&) { return ""; });
  const auto fault = faultOfSelection();
  EXPECT_EQ(fault.kind, NfcFaultKind::ReaderSilent);
  EXPECT_EQ(fault.text, "the reader does not answer within 300 ms");
}

TEST_F(Twn4Links, GiveUpOnALineWithoutAnEnd) {
  plugIn([](const std::string&) { return std::string(5000, '0'); });
  EXPECT_EQ(faultOfSelection().kind, NfcFaultKind::Damage);
}

TEST(Twn4Flood, IsGivenUpLikeAnyOtherDevice) {
  VirtualPort port;
  Twn4Link link(port.device().string(), 115200, 300ms);
  std::atomic<bool> isOver = false;
  std::thread flood([&] {
    const Bytes lineEnds(2000, '\r');
    while (!isOver) port.send(lineEnds);
  });
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EQ(faultOf([&] { (void)link.selectTag(); }).kind, NfcFaultKind::ReaderRefusal);
  EXPECT_LT(std::chrono::steady_clock::now() - begun, 20s);
  isOver = true;
  flood.join();
}

TEST_F(Twn4Links, DistinguishATagThatRefusesFromOneThatHasGone) {
  plugIn([&](const std::string& line) {
    if (line.substr(0, 4) == "0D00") return std::string("0000\r");
    return line == "050010" && !isThere ? "0000\r" : reader(line);
  });
  link->selectTag();
  const auto exchange = [&] { (void)link->exchange(messageLengthRequest()); };
  EXPECT_EQ(faultOf(exchange).kind, NfcFaultKind::TagRefusal);
  isThere = false;
  EXPECT_EQ(faultOf(exchange).kind, NfcFaultKind::TagGone);
}

TEST_F(Twn4Links, ReportADamagedLine) {
  plugIn([&](const std::string& line) {
    return line.substr(0, 4) == "0D00" ? "0001G\r" : reader(line);
  });
  link->selectTag();
  EXPECT_EQ(faultOf([&] { (void)link->exchange(messageLengthRequest()); }).kind,
            NfcFaultKind::Damage);
}

TEST(Twn4Rates, AreAllTheSame) {
  for (const std::int32_t rate : {9600, 19200, 115200, 12345}) {
    LinePort port(std::make_unique<ScriptedDevice>(reader));
    EXPECT_EQ(Twn4Link(port.device(), rate, 300ms).selectTag(), listedUid) << rate;
  }
}

}  // namespace
}  // namespace tessara
