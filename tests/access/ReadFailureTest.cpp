#include <algorithm>
#include <utility>

#include <gmock/gmock.h>

#include "ControlFixture.h"
#include "FakeCatalogue.h"

namespace tessara::testing {
namespace {

using ::testing::ElementsAre;

class ReadFailure : public ControlFixture {
 protected:
  [[nodiscard]] std::vector<std::string> story() const {
    return log.only({"ModulActive", "StatusChange", "Connect", "Read", "CMD48", "Close"});
  }
  void read() { inside(control).panel.CmdDeviceInfo.press(); }
  void failFrom(const std::string& beginning) {
    platform.device.before = [beginning](const std::string& entry) {
      if (entry.starts_with(beginning)) {
        throw std::runtime_error("no answer");
      }
    };
  }
};

TEST_F(ReadFailure, APortThatCannotBeOpenedEndsAtOnceWithoutRetryOrClose) {
  platform.device.connects = false;
  read();
  EXPECT_THAT(story(), ElementsAre("StatusChange()", "StatusChange(Verbindungsaufbau)",
                                   "ModulActive(1)", "ConnectWithSerialDevice(3, 19200)",
                                   "StatusChange(Fehler Verbindung!)", "ModulActive(3)"));
  EXPECT_EQ(inside(control).Baudrate, 19200);
  EXPECT_EQ(inside(control).ConnectAttempts, 0);
}

TEST_F(ReadFailure, GivingUpSetsTheButtonsInOrderAndTheStoreNotThroughItsSetter) {
  platform.device.connects = false;
  inside(control).ScanEnabled = true;
  log.clear();
  read();
  const auto& entries = log.entries();
  const auto from = std::find(entries.begin(), entries.end(), "StatusChange(Fehler Verbindung!)");
  EXPECT_THAT(
      std::vector<std::string>(from, entries.end()),
      ElementsAre("StatusChange(Fehler Verbindung!)", "CmdDeviceInfo.enabled=true",
                  "CmdDeviceInfo.picture=Upload", "CmdStoreParameter.enabled=false",
                  "CmdStoreParameter.picture=Download", "CmdDeviceInfo.enabled=true",
                  "CmdDeviceInfo.picture=Upload", "CmdStoreParameter.enabled=false",
                  "CmdOfflineConfigure.enabled=true", "CmdOfflineConfigure.picture=Offline",
                  "CmdOpenDiskParameter.enabled=true", "CmdOpenDiskParameter.picture=Open",
                  "CmdSave2DiskParameter.enabled=true", "CmdSave2DiskParameter.picture=Save",
                  "TimerScanDevice.enabled=false", "ModulActive(3)"));
  EXPECT_FALSE(inside(control).ScanEnabled);
  EXPECT_FALSE(platform.loop.timerEnabled);
  EXPECT_FALSE(inside(control).bDataValid);
}

TEST_F(ReadFailure, AModuleThatThrowsOnTheFirstReadIsRetriedOnceAtTheHighRate) {
  failFrom("ReadDeviceIdentifier");
  read();
  EXPECT_THAT(story(), ElementsAre("StatusChange()", "StatusChange(Verbindungsaufbau)",
                                   "ModulActive(1)", "ConnectWithSerialDevice(3, 19200)",
                                   "ReadDeviceIdentifier(192)", "CloseSerialConnection",
                                   "StatusChange()", "StatusChange(Verbindungsaufbau)",
                                   "ModulActive(1)", "ConnectWithSerialDevice(3, 115200)",
                                   "ReadDeviceIdentifier(192)", "CloseSerialConnection",
                                   "StatusChange(Fehler Verbindung!)", "ModulActive(3)"));
  EXPECT_EQ(control.get_Baudrate(), 115200);
  EXPECT_EQ(inside(control).panel.ComboBaudrate.text(), u"19200");
  EXPECT_EQ(inside(control).ConnectAttempts, 0);
  EXPECT_FALSE(inside(control).DeviceConnected);
}

TEST_F(ReadFailure, ASecondAttemptThatSucceedsEndsAsOneRead) {
  bool failed = false;
  platform.device.before = [&failed](const std::string& entry) {
    if (entry.starts_with("ReadDeviceIdentifier") && !std::exchange(failed, true)) {
      throw std::runtime_error("no answer");
    }
  };
  read();
  EXPECT_THAT(
      log.only({"ModulActive", "NFCReader"}),
      ElementsAre("ModulActive(1)", "ModulActive(1)", "ModulActive(0)", "NFCReader(false)"));
  EXPECT_EQ(inside(control).ConnectAttempts, 0);
  EXPECT_TRUE(inside(control).bDataValid);
  EXPECT_EQ(inside(control).Baudrate, 115200);
}

TEST_F(ReadFailure, AnExceptionOfTheConnectIsRetriedAsLongAsItRecurs) {
  int connects = 0;
  platform.device.before = [&connects](const std::string& entry) {
    if (entry.starts_with("Connect") && ++connects < 5000) {
      throw std::runtime_error("the driver is upset");
    }
  };
  read();
  EXPECT_EQ(connects, 5000);
  EXPECT_EQ(log.count("CloseSerialConnection"), 5000U);
  EXPECT_EQ(log.count("ModulActive(1)"), 5000U);
  EXPECT_EQ(log.count("ModulActive(3)"), 0U);
  EXPECT_TRUE(inside(control).bDataValid);
}

TEST_F(ReadFailure, AFailedConnectAtTheRetryEndsWithoutClosingAgain) {
  platform.device.before = [this](const std::string& entry) {
    if (entry.starts_with("ReadDeviceIdentifier")) {
      platform.device.connects = false;
      throw std::runtime_error("no answer");
    }
  };
  read();
  EXPECT_EQ(log.count("ConnectWithSerialDevice"), 2U);
  EXPECT_EQ(log.count("CloseSerialConnection"), 1U);
  EXPECT_EQ(log.count("ModulActive(3)"), 1U);
  EXPECT_EQ(inside(control).Baudrate, 115200);
}

class BadAddress : public ReadFailure, public ::testing::WithParamInterface<const char16_t*> {};

TEST_P(BadAddress, FailsAfterTheConnectionWasOpenedAndIsRetriedOnce) {
  inside(control).DevAddr = 9;
  inside(control).panel.txtDevAddr.type(GetParam());
  log.clear();
  read();
  EXPECT_EQ(log.count("ConnectWithSerialDevice"), 2U);
  EXPECT_EQ(log.count("CloseSerialConnection"), 2U);
  EXPECT_EQ(log.count("ReadDeviceIdentifier"), 0U);
  EXPECT_EQ(inside(control).StatusString, u"Fehler Verbindung!");
  EXPECT_EQ(inside(control).DevAddr, 9);
}

INSTANTIATE_TEST_SUITE_P(Texts, BadAddress, ::testing::Values(u"256", u"abc", u"", u"-1"));

TEST_F(ReadFailure, AnUnreadableCatalogueIsRetriedOnceAndThenGivenUp) {
  platform.xmlTree = [] { return FakeCatalogue::broken(); };
  read();
  EXPECT_EQ(log.count("ConnectWithSerialDevice"), 2U);
  EXPECT_EQ(log.count("CloseSerialConnection"), 2U);
  EXPECT_EQ(log.count("Show 16 MERIDEX_CONF: Fehler XML-Datei!"), 2U);
  EXPECT_EQ(log.count("ReadInputRegisters(192, 16, 16, 2)"), 2U);
  EXPECT_EQ(log.count("ReadInputRegisters(192, 60, 1, 2)"), 0U);
  EXPECT_EQ(log.entries().back(), "ModulActive(3)");
}

TEST_F(ReadFailure, WhatWasWrittenBeforeTheFailureStays) {
  failFrom("ReadInputRegisters(192, 16,");
  inside(control).DeviceName = u"the module before";
  read();
  EXPECT_EQ(inside(control).panel.LblVendorID.caption(), u"49");
  EXPECT_EQ(inside(control).panel.LblFwVersion.caption(), u"1.234");
  EXPECT_EQ(inside(control).panel.LblSerialNumber.caption(), u"131073");
  EXPECT_EQ(inside(control).DeviceName, u"");
}

TEST_F(ReadFailure, AnExceptionOfAHostCallbackInsideTheReadIsAFailureToo) {
  int upsets = 0;
  host.onCallback = [&upsets](const std::string& entry) {
    if (entry == "ModulActive(1)" && ++upsets == 1) {
      throw std::runtime_error("the host is upset");
    }
  };
  read();
  EXPECT_EQ(log.count("ModulActive(1)"), 2U);
  EXPECT_EQ(inside(control).Baudrate, 115200);
  EXPECT_TRUE(inside(control).bDataValid);
}

TEST_F(ReadFailure, ACloseThatThrowsAtTheEndOfAReadIsRetriedAndReported) {
  failFrom("CloseSerialConnection");
  read();
  EXPECT_EQ(log.count("ConnectWithSerialDevice"), 2U);
  EXPECT_EQ(log.entries().back(), "ModulActive(3)");
  EXPECT_FALSE(inside(control).DeviceConnected);
  EXPECT_EQ(control.get_DataValid(), 0);
}

TEST_F(ReadFailure, WithoutASelectedObjectTheConnectionFails) {
  inside(control).CommObject.reset();
  read();
  EXPECT_THAT(story(),
              ElementsAre("StatusChange()", "StatusChange(Verbindungsaufbau)", "ModulActive(1)",
                          "StatusChange(Fehler Verbindung!)", "ModulActive(3)"));
}

}  // namespace
}  // namespace tessara::testing
