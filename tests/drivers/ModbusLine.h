#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "drivers/NamedPorts.h"
#include "drivers/ScriptedSlave.h"
#include "drivers/modbus/ModbusDriver.h"

namespace tessara::testing {

/// A driver on COM3 with a scripted slave.
struct ModbusLine {
  explicit ModbusLine(ScriptedSlave::Script script, const ModbusTimings& timings = {})
      : slave(std::move(script)), ports({{3, slave.device()}}), driver(ports, timings) {}

  bool connect(std::int32_t rate = 115200) {
    std::int16_t comPort = 3;
    return driver.ConnectWithSerialDevice(comPort, rate);
  }

  DeviceWords identification(std::uint8_t address = 192) {
    return driver.ReadDeviceIdentifier(address);
  }

  DeviceWords registers(std::int32_t start, std::int16_t count) {
    return driver.ReadInputRegisters(192, start, count, 2);
  }

  /// The name of the port in messages.
  [[nodiscard]] std::string port() const { return "COM3 (" + slave.device() + ")"; }

  ScriptedSlave slave;
  NamedPorts ports;
  ModbusDriver driver;
};

}  // namespace tessara::testing
