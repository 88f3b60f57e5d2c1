#pragma once

#include <cstdint>
#include <exception>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "drivers/PortDirectory.h"
#include "drivers/ScriptedSlave.h"
#include "drivers/modbus/ModbusDriver.h"

namespace tessara::testing {

/// Ports that a test names.
class NamedPorts final : public PortDirectory {
 public:
  explicit NamedPorts(std::map<std::int16_t, std::string> devices) : devices_(std::move(devices)) {}

  [[nodiscard]] std::optional<std::string> deviceOf(std::int16_t comPort) const override {
    const auto known = devices_.find(comPort);
    return known == devices_.end() ? std::nullopt : std::optional(known->second);
  }

  void put(std::int16_t comPort, const std::string& device) { devices_[comPort] = device; }

 private:
  std::map<std::int16_t, std::string> devices_;
};

/// A driver on COM3 and a scripted slave behind it.
struct ModbusLine {
  explicit ModbusLine(ScriptedSlave::Script script, const ModbusTimings& timings = {})
      : slave(std::move(script)), ports({{3, slave.device()}}), driver(ports, timings) {}

  bool connect(std::int32_t rate = 115200) {
    std::int16_t comPort = 3;
    return driver.ConnectWithSerialDevice(comPort, rate);
  }

  DeviceWords identification(std::uint8_t unit = 192) { return driver.ReadDeviceIdentifier(unit); }

  DeviceWords registers(std::int32_t start, std::int16_t count) {
    return driver.ReadInputRegisters(192, start, count, 2);
  }

  /// The name of the port in messages.
  [[nodiscard]] std::string port() const { return "COM3 (" + slave.device() + ")"; }

  ScriptedSlave slave;
  NamedPorts ports;
  ModbusDriver driver;
};

/// The message of the exception that `action` throws; empty if it throws none.
template <class Action>
std::string errorOf(Action action) {
  try {
    action();
  } catch (const std::exception& error) {
    return error.what();
  }
  return {};
}

/// The same reply to every request.
inline ScriptedSlave::Script always(const Bytes& bytes) {
  return [bytes](const Bytes&, std::size_t) {
    return Reply{{std::chrono::milliseconds(0), bytes}};
  };
}

/// One reply after the other; the last one for all further requests.
inline ScriptedSlave::Script inTurn(std::vector<Reply> replies) {
  return [replies = std::move(replies)](const Bytes&, std::size_t index) {
    return index < replies.size() ? replies[index] : replies.back();
  };
}

}  // namespace tessara::testing
