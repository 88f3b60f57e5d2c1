#include <gmock/gmock.h>

#include "ControlFixture.h"
#include "FakeCatalogue.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What happens when an event enters the control in the middle of a workflow.
class Reentry : public ControlFixture {
 protected:
  /// Runs `action` once, in the nth turn of the event loop from now.
  void inTurn(int nth, std::function<void()> action) {
    platform.loop.onYield = [nth, action = std::move(action), turn = 0]() mutable {
      if (++turn == nth) {
        action();
      }
    };
  }
  void readOnce() {
    control.AutomaticConnection();
    log.clear();
  }
  [[nodiscard]] std::vector<std::string> calls() const {
    return log.only({"Connect", "Read", "CMD48", "Close"});
  }
};

TEST_F(Reentry, ATickDuringAReadDoesNothing) {
  inTurn(2, [this] { platform.loop.tick(); });
  control.AutomaticConnection();
  EXPECT_THAT(log.only({"ModulActive(4)"}), IsEmpty());
  EXPECT_TRUE(inside(control).bDataValid);
}

TEST_F(Reentry, ATickDuringAScanDoesNothing) {
  readOnce();
  inTurn(3, [this] { platform.loop.tick(); });
  platform.loop.tick();
  EXPECT_EQ(log.count("ModulActive(4)"), 1U);
  EXPECT_EQ(log.count("ConnectWithSerialDevice"), 1U);
}

TEST_F(Reentry, AReadDuringAScanCompletesAndTheScanEndsInOrder) {
  readOnce();
  inTurn(3, [this] { control.AutomaticConnection(); });
  platform.loop.tick();
  EXPECT_TRUE(inside(control).bDataValid);
  EXPECT_FALSE(inside(control).DeviceConnected);
  EXPECT_TRUE(inside(control).panel.CmdDeviceInfo.enabled());
  EXPECT_EQ(log.count("ConnectWithSerialDevice"), 2U);
}

TEST_F(Reentry, AWaitingQueryDuringAScanContinuesOnlyWhenTheHostReleasesTheConnection) {
  readOnce();
  int turn = 0;
  int spins = 0;
  platform.loop.onYield = [&] {
    ++turn;
    if (turn == 3) {
      control.GetFWVersion();
    } else if (turn > 3 && inside(control).DeviceConnected && ++spins == 4) {
      control.put_DeviceConnected(0);
    }
  };
  platform.loop.tick();
  EXPECT_EQ(spins, 4);
  EXPECT_EQ(log.count("ConnectWithSerialDevice"), 2U);
  EXPECT_FALSE(inside(control).DeviceConnected);
}

TEST_F(Reentry, AStatusQueryDuringAScanConnectsAtOnce) {
  readOnce();
  inTurn(3, [this] { control.GetDeviceStatus(); });
  platform.loop.tick();
  EXPECT_EQ(log.count("ConnectWithSerialDevice"), 2U);
  EXPECT_FALSE(inside(control).DeviceConnected);
}

TEST_F(Reentry, ACheckDuringAScanConnectsAndRestoresTheTimer) {
  readOnce();
  inTurn(3, [this] { EXPECT_EQ(control.get_CheckDeviceType(), 1); });
  platform.loop.tick();
  EXPECT_TRUE(platform.loop.timerEnabled);
  EXPECT_FALSE(inside(control).DeviceConnected);
}

TEST_F(Reentry, HostBusyDeclaredDuringAScanHoldsTheNextTick) {
  readOnce();
  inTurn(3, [this] { control.put_DeviceActive(1); });
  platform.loop.tick();
  log.clear();
  platform.loop.tick();
  EXPECT_THAT(log.entries(), IsEmpty());
}

TEST_F(Reentry, HostBusyDeclaredDuringAReadLeavesTheButtonsToTheRead) {
  inTurn(2, [this] { control.put_DeviceActive(1); });
  control.AutomaticConnection();
  EXPECT_TRUE(inside(control).bDataValid);
  EXPECT_TRUE(inside(control).HostActive);
  EXPECT_TRUE(inside(control).panel.CmdDeviceInfo.enabled());
}

TEST_F(Reentry, ShownAgainDuringAReadTheReadEndsInOrder) {
  platform.serialKey.ports = {{"\\Device\\Silabser0", "COM3"}};
  inTurn(2, [this] { control.UserControl_Show(); });
  control.AutomaticConnection();
  EXPECT_TRUE(inside(control).bDataValid);
  EXPECT_FALSE(inside(control).DeviceConnected);
}

/// The control is ended in a turn or in a callback of a workflow.
class EndedInside : public Reentry {
 protected:
  void endInTurn(int nth) {
    inTurn(nth, [this] {
      control.UserControl_Terminate();
      log.clear();
    });
  }
  void endIn(const std::string& raised) {
    host.onCallback = [this, raised](const std::string& entry) {
      if (entry == raised) {
        control.UserControl_Terminate();
        log.clear();
      }
    };
  }
  /// Nothing reaches an object or the host once the control has ended.
  void expectSilence() {
    EXPECT_THAT(log.only({"Connect", "Read", "CMD48", "Close", "ModulActive", "StatusChange",
                          "NFCReader", "SetConfiguration", "Show", "SetValue"}),
                IsEmpty());
    EXPECT_FALSE(inside(control).DeviceConnected);
    EXPECT_EQ(moduleWide().ModbusCommObject, nullptr);
  }
};

/// The number of a turn in which the control is ended. Each workflow is ended in every one of its
/// turns; in the turn behind its last it has gone through by itself.
class EndedInTurn : public EndedInside, public ::testing::WithParamInterface<int> {
 protected:
  void expectEndedInOneOf(int turns) {
    if (GetParam() <= turns) {
      expectSilence();
    } else {
      EXPECT_NE(moduleWide().ModbusCommObject, nullptr) << "there is a turn more";
      EXPECT_EQ(log.count("CloseSerialConnection"), 1U);
    }
  }
};

TEST_P(EndedInTurn, OfAReadOnTheRegisterPath) {
  endInTurn(GetParam());
  control.AutomaticConnection();
  expectEndedInOneOf(2);
}

TEST_P(EndedInTurn, OfAReadOnTheHartPath) {
  platform.device.identifier = {176, 5, 226, 1};
  platform.device.registers = {{24, {0, 0}}, {20, {0, 0}}, {27, {0, 0}}};
  endInTurn(GetParam());
  control.AutomaticConnection();
  expectEndedInOneOf(5);
}

TEST_P(EndedInTurn, OfAScan) {
  readOnce();
  endInTurn(GetParam());
  platform.loop.tick();
  expectEndedInOneOf(5);
}

TEST_P(EndedInTurn, OfAHartScan) {
  readOnce();
  inside(control).VendorID = 176;
  endInTurn(GetParam());
  platform.loop.tick();
  expectEndedInOneOf(4);
}

TEST_P(EndedInTurn, OfAFailedScan) {
  readOnce();
  platform.device.before = [](const std::string& entry) {
    if (entry.starts_with("ReadInput")) {
      throw std::runtime_error("no answer");
    }
  };
  endInTurn(GetParam());
  platform.loop.tick();
  expectEndedInOneOf(3);
}

INSTANTIATE_TEST_SUITE_P(Turns, EndedInTurn, ::testing::Range(1, 7));

TEST_F(EndedInside, TheWaitOfAQuery) {
  inside(control).DeviceConnected = true;
  endInTurn(3);
  control.GetDeviceInformation();
  EXPECT_THAT(calls(), IsEmpty());
  EXPECT_EQ(moduleWide().ModbusCommObject, nullptr);
}

TEST_F(EndedInside, TheTurnOfAStatusQuery) {
  endInTurn(1);
  control.GetDeviceStatus();
  expectSilence();
}

class EndedInCallback : public EndedInside, public ::testing::WithParamInterface<const char*> {};

TEST_P(EndedInCallback, OfARead) {
  endIn(GetParam());
  control.AutomaticConnection();
  expectSilence();
}

INSTANTIATE_TEST_SUITE_P(Callbacks, EndedInCallback,
                         ::testing::Values("StatusChange()", "StatusChange(Verbindungsaufbau)",
                                           "ModulActive(1)", "ModulActive(0)", "NFCReader(false)"));

TEST_F(EndedInside, TheCallbackOfAFailedRead) {
  platform.device.connects = false;
  endIn("StatusChange(Fehler Verbindung!)");
  control.AutomaticConnection();
  expectSilence();
}

TEST_F(EndedInside, TheCallbackOfAStoreThatMatches) {
  readOnce();
  control.UnLockCmdStore();
  endIn("SetConfiguration");
  inside(control).panel.CmdStoreParameter.press();
  expectSilence();
}

TEST_F(EndedInside, TheFirstCallbackOfAStore) {
  readOnce();
  control.UnLockCmdStore();
  endIn("ModulActive(1)");
  inside(control).panel.CmdStoreParameter.press();
  expectSilence();
}

/// A message box while which the control is ended.
class EndingMessages final : public MessageHelper {
 public:
  explicit EndingMessages(ModulInfoFLII& control) : control_(control) {}
  std::int32_t Show(const std::u16string& /*text*/, MessageStyle /*style*/,
                    const std::u16string& /*title*/) override {
    control_.UserControl_Terminate();
    return answer_;
  }

 private:
  ModulInfoFLII& control_;
  std::int32_t answer_ = 4;
};

TEST_F(EndedInside, TheMessageOfAnUnreadableCatalogue) {
  platform.xmlTree = [] { return FakeCatalogue::broken(); };
  moduleWide().MessageHelper = std::make_shared<EndingMessages>(control);
  control.AutomaticConnection();
  EXPECT_EQ(inside(control).lMsgResult, 4);
  EXPECT_FALSE(inside(control).DeviceConnected);
  EXPECT_THAT(log.only({"ModulActive"}), ElementsAre("ModulActive(1)"));
}

TEST_F(EndedInside, TheCallbackOfTheStartUpSequence) {
  platform.serialKey.ports = {{"\\Device\\Silabser0", "COM3"}};
  endIn("NFCReader(false)");
  EXPECT_EQ(errorNumberOf([&] { control.UserControl_Show(); }), 91);
  expectSilence();
}

}  // namespace
}  // namespace tessara::testing
