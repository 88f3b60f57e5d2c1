#include <gmock/gmock.h>

#include "ControlFixture.h"

namespace tessara::testing {
namespace {

/// The ways in which one operation of a read can go wrong.
enum class Way : char {
  False = 'f',
  Exception = 'x',
  Empty = 'e',
  TooShort = 's',
  OutOfRange = 'r',
};

constexpr std::string_view ways = "fxesr";

/// One call of a healthy read, and the ways that are a failure for it. A version or a text with odd
/// words is read as it stands, an LED word may be wide, and the first error word is not looked at.
struct Call {
  const char* entry;
  std::string_view failingWays;
};

struct Path {
  const char* name;
  DeviceWords identifier;
  std::map<std::int32_t, DeviceWords> registers;
  std::vector<Call> calls;
};

Path registerPath() {
  return {"registers",
          {49, 1, 16, 161},
          {{4, {0x1234}},
           {3, {0x1100}},
           {5, {1, 2, 0, 0}},
           {16, DeviceWords(16, 0x4142)},
           {60, {0x0002}},
           {61, {0x0080}},
           {62, {0x0011}},
           {63, {0x0080}},
           {64, {0}}},
          {{"ConnectWithSerialDevice(3, 19200)", "fx"},
           {"ReadDeviceIdentifier(192)", "xesr"},
           {"ReadInputRegisters(192, 4, 1, 2)", "xes"},
           {"ReadInputRegisters(192, 3, 1, 2)", "xes"},
           {"ReadInputRegisters(192, 5, 4, 2)", "xesr"},
           {"ReadInputRegisters(192, 16, 16, 2)", "xes"},
           {"ReadInputRegisters(192, 60, 1, 2)", "xesr"},
           {"ReadInputRegisters(192, 64, 1, 2)", "xes"},
           {"ReadInputRegisters(192, 62, 1, 2)", "x"},
           {"ReadInputRegisters(192, 62, 1, 2)", "xesr"},
           {"ReadInputRegisters(192, 61, 1, 2)", "xesr"},
           {"ReadInputRegisters(192, 63, 1, 2)", "xesr"},
           {"CloseSerialConnection", "x"}}};
}

Path hartPath() {
  return {"HART",
          {176, 5, 226, 1},
          {{24, {0, 0, 'H'}}, {20, {0, 0, 'N'}}, {27, {0, 0, 'S'}}},
          {{"ConnectWithSerialDevice(3, 19200)", "fx"},
           {"ReadDeviceIdentifier(192)", "xesr"},
           {"ReadInputRegisters(0, 24, 1, 12)", "xr"},
           {"ReadInputRegisters(0, 20, 1, 12)", "xr"},
           {"ReadInputRegisters(0, 27, 1, 12)", "xr"},
           {"CMD48", "x"},
           {"CloseSerialConnection", "x"}}};
}

class Torture : public ControlFixture, public ::testing::WithParamInterface<Path (*)()> {
 protected:
  void heal() {
    platform.device.identifier = path.identifier;
    platform.device.registers = path.registers;
    platform.device.before = [](const std::string&) {};
    platform.device.change = [](DeviceWords&) {};
    platform.device.connects = true;
  }

  /// Makes the nth call of the next read go wrong, and no other.
  void sabotage(std::size_t nth, Way way) {
    platform.device.before = [this, nth, way, calls = std::size_t{0}](const std::string&) mutable {
      hit = calls++ == nth;
      platform.device.connects = !(hit && way == Way::False);
      if (hit && way == Way::Exception) {
        throw std::runtime_error("sabotaged");
      }
    };
    platform.device.change = [this, way](DeviceWords& words) {
      if (hit && way == Way::Empty) {
        words.clear();
      } else if (hit && way == Way::TooShort) {
        words.pop_back();
      } else if (hit && way == Way::OutOfRange) {
        words.back() = 0x7FFFFFFF;
      }
    };
  }

  void read() {
    inside(control).Baudrate = 19200;
    log.clear();
    control.AutomaticConnection();
  }

  [[nodiscard]] std::vector<std::string> calls() const {
    return log.only({"Connect", "Read", "CMD48", "CloseSerialConnection"});
  }

  /// What must hold after every read, however it ended.
  void expectOrderlyEnd() {
    EXPECT_FALSE(inside(control).DeviceConnected);
    EXPECT_EQ(inside(control).ConnectAttempts, 0);
    EXPECT_TRUE(inside(control).panel.CmdDeviceInfo.enabled());
    EXPECT_TRUE(inside(control).panel.CmdOfflineConfigure.enabled());
    EXPECT_TRUE(inside(control).panel.CmdOpenDiskParameter.enabled());
    EXPECT_TRUE(inside(control).panel.CmdSave2DiskParameter.enabled());
    EXPECT_FALSE(inside(control).panel.CmdStoreParameter.enabled());
    EXPECT_EQ(inside(control).ScanEnabled, inside(control).bDataValid);
    EXPECT_EQ(platform.loop.timerEnabled, inside(control).bDataValid);
    EXPECT_EQ(inside(control).panel.ImageDevState.visible(), inside(control).bDataValid);
    EXPECT_EQ(log.only({"ModulActive"}).back(),
              inside(control).bDataValid ? "ModulActive(0)" : "ModulActive(3)");
    EXPECT_EQ(log.count("ModulActive(0)") + log.count("ModulActive(3)"), 1U);
    EXPECT_EQ(log.count("NFCReader"), inside(control).bDataValid ? 1U : 0U);
    EXPECT_EQ(inside(control).StatusString,
              inside(control).bDataValid ? u"" : u"Fehler Verbindung!");
  }

  void expectNextReadSucceeds() {
    heal();
    read();
    EXPECT_TRUE(inside(control).bDataValid);
    EXPECT_EQ(calls().size(), path.calls.size());
    EXPECT_EQ(log.count("ModulActive(1)"), 1U);
    expectOrderlyEnd();
  }

  Path path = GetParam()();
  bool hit = false;
};

TEST_P(Torture, AHealthyReadMakesTheseCalls) {
  heal();
  read();
  std::vector<std::string> expected;
  for (const Call& call : path.calls) {
    expected.emplace_back(call.entry);
  }
  EXPECT_EQ(calls(), expected);
}

TEST_P(Torture, AFailedCallIsRetriedOrEndsTheReadInOrder) {
  for (std::size_t nth = 0; nth < path.calls.size(); ++nth) {
    const Call& call = path.calls[nth];
    for (const char way : ways) {
      SCOPED_TRACE(std::string(path.name) + ": " + call.entry + ", way " + way);
      heal();
      sabotage(nth, static_cast<Way>(way));
      read();
      expectOrderlyEnd();

      const bool fails = call.failingWays.find(way) != std::string_view::npos;
      const bool refused = nth == 0 && way == 'f';
      const bool retried = fails && !refused;
      EXPECT_EQ(inside(control).bDataValid, !refused);
      EXPECT_EQ(inside(control).Baudrate, retried ? 115200 : 19200);
      EXPECT_EQ(log.count("ModulActive(1)"), retried ? 2U : 1U);
      EXPECT_EQ(log.count("ConnectWithSerialDevice"), retried ? 2U : 1U);
      const std::size_t closes =
          retried && call.entry != std::string("CloseSerialConnection") ? 2U : (retried ? 3U : 1U);
      EXPECT_EQ(log.count("CloseSerialConnection"), refused ? 0U : closes);
      expectNextReadSucceeds();
    }
  }
}

TEST_P(Torture, AModuleThatStopsAnsweringIsGivenUpAfterTheRetry) {
  for (std::size_t nth = 1; nth < path.calls.size(); ++nth) {
    SCOPED_TRACE(std::string(path.name) + ": dead from " + path.calls[nth].entry);
    heal();
    platform.device.before = [nth, n = std::size_t{0}](const std::string& entry) mutable {
      if (n++ >= nth && !entry.starts_with("Connect")) {
        throw std::runtime_error("dead");
      }
    };
    read();
    expectOrderlyEnd();
    EXPECT_FALSE(inside(control).bDataValid);
    EXPECT_EQ(log.count("ConnectWithSerialDevice"), 2U);
    EXPECT_EQ(log.count("ModulActive(1)"), 2U);
    EXPECT_EQ(inside(control).Baudrate, 115200);
    expectNextReadSucceeds();
  }
}

INSTANTIATE_TEST_SUITE_P(Paths, Torture, ::testing::Values(&registerPath, &hartPath));

}  // namespace
}  // namespace tessara::testing
