#include <functional>
#include <random>
#include <stdexcept>
#include <vector>

#include "ControlFixture.h"
#include "control/MemberTable.h"

namespace tessara::testing {
namespace {

/// Hosts, people and modules that do anything at any moment: in callbacks, in turns of the event
/// loop, before the control came up and after it ended. What they do follows from the parameter
/// alone, so that a round that goes wrong can be repeated.
class AnyPhase : public ControlFixture, public ::testing::WithParamInterface<unsigned> {
 protected:
  bool oneIn(unsigned chances) { return random() % chances == 0; }
  std::int32_t below(unsigned bound) { return static_cast<std::int32_t>(random() % bound); }

  /// One act, which may bring about others inside it.
  void act() {
    constexpr int deepest = 6;
    if (depth == deepest || budget == 0) {
      return;
    }
    ++depth;
    --budget;
    try {
      acts.at(random() % acts.size())();
    } catch (const std::exception&) {
      // A call at the wrong moment may be an error; what counts is how the control stands it.
    }
    --depth;
  }

  void beginDisorder() {
    host.onCallback = [this](const std::string&) {
      if (oneIn(8)) {
        act();
      }
    };
    platform.loop.onYield = [this] {
      if (oneIn(3)) {
        act();
      }
      // Whoever waits for the connection to fall waits until the host lets it go.
      if (oneIn(5)) {
        control.put_DeviceConnected(0);
      }
    };
  }
  void endDisorder() {
    host.onCallback = [](const std::string&) {};
    platform.loop.onYield = [] {};
    platform.device.before = [](const std::string&) {};
    platform.device.change = [](DeviceWords&) {};
    platform.device.connects = true;
    platform.device.identifier = {49, 1, 16, 161};
  }

  void pressAny() {
    std::vector<Widget*> buttons;
    for (Widget* widget : inside(control).panel.widgets()) {
      if (widget->kind() == WidgetKind::Button) {
        buttons.push_back(widget);
      }
    }
    buttons.at(random() % buttons.size())->press();
  }
  void useAnyProperty() {
    const Member& member = memberTable()[random() % memberTable().size()];
    if (member.get != nullptr) {
      (void)member.get(control);
    }
    if (member.set != nullptr) {
      member.set(control, oneIn(2) ? Variant{std::int64_t{below(5)}} : Variant{std::u16string()});
    }
  }
  void callAnyMethod() {
    const Member& member = memberTable()[random() % memberTable().size()];
    if (member.call != nullptr) {
      member.call(control, std::vector<Variant>(member.arguments.size(),
                                                Variant{std::int64_t{below(40000)}}));
    }
  }
  void spoilAnswers() {
    platform.device.before = [this](const std::string& entry) {
      const bool isRare = entry.starts_with("Connect") || entry.starts_with("Close");
      if (oneIn(isRare ? 30 : 6)) {
        throw std::runtime_error("no answer");
      }
    };
    platform.device.change = [this](DeviceWords& words) {
      if (oneIn(8)) {
        words.clear();
      } else if (oneIn(8)) {
        words.assign(1, below(0x80000000U) - 0x40000000);
      }
    };
  }
  void endAnotherControl() {
    FakePlatform otherPlatform;
    FakeHost otherHost(otherPlatform.log);
    ModulInfoFLII other(otherPlatform, otherHost);
    other.UserControl_Initialize();
  }

  std::mt19937 random{GetParam()};
  int depth = 0;
  int budget = 4000;

  const std::vector<std::function<void()>> acts{
      [this] { pressAny(); },
      [this] { pressAny(); },
      [this] { useAnyProperty(); },
      [this] { callAnyMethod(); },
      [this] { callAnyMethod(); },
      [this] { control.AutomaticConnection(); },
      [this] { (void)control.get_CheckDeviceType(); },
      [this] { platform.loop.tick(); },
      [this] { control.put_DeviceActive(below(9)); },
      [this] { control.UserControl_Show(); },
      [this] { control.UserControl_Initialize(); },
      [this] {
        if (oneIn(5)) {
          control.UserControl_Terminate();
        }
      },
      [this] {
        if (oneIn(5)) {
          endAnotherControl();
        }
      },
      [this] { inside(control).panel.ComboComPort.select(below(4)); },
      [this] { inside(control).panel.ComboBaudrate.select(below(12)); },
      [this] { inside(control).panel.txtDevAddr.setText(oneIn(3) ? u"300" : u"192"); },
      [this] { platform.device.connects = !oneIn(4); },
      [this] { platform.device.cmd48Count = static_cast<std::int16_t>(below(5) - 2); },
      [this] {
        platform.device.identifier = {176, 5, 226, 1};
      },
      [this] {
        platform.device.identifier = {49, 1, 16, 161};
      },
      [this] { spoilAnswers(); },
      [this] { platform.device.before = [](const std::string&) {}; },
      [this] { platform.serialKey.ports.clear(); },
      [this] {
        platform.serialKey.ports = {{"\\Device\\Silabser0", "COM3"}, {"\\Device\\ViatorX", "COM5"}};
      },
      [this] { platform.readerLibrary.connectStatus = below(2); },
  };
};

TEST_P(AnyPhase, LeavesAControlThatReadsAgain) {
  beginDisorder();
  for (int round = 0; round < 300; ++round) {
    act();
    log.clear();
  }
  endDisorder();
  control.UserControl_Initialize();
  selectModbus();
  inside(control).panel.txtDevAddr.setText(u"192");
  log.clear();
  control.AutomaticConnection();
  EXPECT_EQ(control.get_DataValid(), 1);
  EXPECT_EQ(control.get_DeviceConnected(), 0);
  EXPECT_EQ(inside(control).ConnectAttempts, 0);
  EXPECT_EQ(inside(control).panel.LblModulState.caption(), u"0 -> Kein Fehler");
  EXPECT_EQ(log.only({"ModulActive"}),
            (std::vector<std::string>{"ModulActive(1)", "ModulActive(0)"}));
  EXPECT_EQ(log.count("ConnectWithSerialDevice"), 1U);
  EXPECT_TRUE(platform.loop.timerEnabled);
}

INSTANTIATE_TEST_SUITE_P(Rounds, AnyPhase, ::testing::Range(1U, 21U));

}  // namespace
}  // namespace tessara::testing
