#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "FakeHost.h"
#include "FakePlatform.h"
#include "Inside.h"
#include "PanelLog.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "control/ModulInfoFLII.h"

namespace tessara::testing {

/// The number of the run-time error that the call raises; fails the test if it raises none.
template <typename Call>
std::int32_t errorNumberOf(Call call) {
  try {
    call();
  } catch (const RunTimeError& error) {
    return static_cast<std::int32_t>(error.number());
  }
  ADD_FAILURE() << "no run-time error was raised";
  return 0;
}

/// A control that has come up in a world of fakes, with ModbusCommObject selected, the German texts
/// loaded and a healthy module of family 16 on COM3; the log is empty.
class ControlFixture : public ::testing::Test {
 protected:
  ControlFixture() : host(platform.log), panelLog(platform.log), control(platform, host) {
    host.statusText = [this] { return "(" + toUtf8(inside(control).StatusString) + ")"; };
    control.UserControl_Initialize();
    inside(control).panel.setObserver(&panelLog);
    LoadDefaultTexts(moduleWide());
    selectModbus();
    inside(control).ComPort = 3;
    inside(control).Baudrate = 19200;
    platform.device.registers = healthyRegisters();
    log.clear();
  }

  void selectModbus() {
    inside(control).CommObject = moduleWide().ModbusCommObject;
    inside(control).CommunicationObject = inside(control).CommObject;
  }

  static std::map<std::int32_t, DeviceWords> healthyRegisters() {
    return {{4, {0x1234}},
            {3, {0x1100}},
            {5, {0x0001, 0x0002, 0, 0}},
            {16, DeviceWords(16, 0x4142)},
            {0, {0x0080}},
            {60, {0}},
            {61, {0x0080}},
            {62, {0x0011}},
            {63, {0x0080}},
            {64, {0}}};
  }

  FakePlatform platform;
  CallLog& log = platform.log;
  FakeHost host;
  PanelLog panelLog;
  ModulInfoFLII control;
};

}  // namespace tessara::testing
