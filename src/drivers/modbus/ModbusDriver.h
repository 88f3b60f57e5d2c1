#pragma once

#include <cstdint>
#include <string>

#include "drivers/PortDirectory.h"
#include "drivers/modbus/ModbusLink.h"
#include "platform/CommunicationObject.h"

namespace tessara {

/// Modules on a Modbus RTU line.
///
/// A failed read is a ReadError. Its cause is one of: no answer, checksum error, an answer that
/// broke off, is too short or answers something else, an exception code of the module, the port
/// gone. With the default timings a read that fails takes about one second, and three at worst:
/// after late and damaged answers.
class ModbusDriver final : public ModbusCommObject {
 public:
  /// `ports` must outlive the driver.
  explicit ModbusDriver(const PortDirectory& ports, const ModbusTimings& timings = {});

  /// Does nothing: connecting brings all that a connection needs.
  void InitModbusObject() override {}
  void ShutDown() override;

  /// False also for a rate below minLineRate.
  bool ConnectWithSerialDevice(std::int16_t& comPort, std::int32_t& baudrate) override;
  /// The four words that follow the server id in the module's report.
  DeviceWords ReadDeviceIdentifier(std::uint8_t& devAddr) override;
  /// `slave` 1 to 247, `startAddress` 0 to 65535, `count` 1 to 125; anything else is a ReadError,
  /// and nothing is sent. Address 0 calls all modules and is answered by none. `access` is not
  /// used.
  DeviceWords ReadInputRegisters(std::int16_t slave, std::int32_t startAddress, std::int16_t count,
                                 std::int32_t access) override;
  /// Always 0: a Modbus line carries no HART commands.
  std::int16_t CMD48(Cmd48Reply& reply) override;
  void CloseSerialConnection() override;

  [[nodiscard]] std::string connectFailure() const override { return failure_; }

 private:
  const PortDirectory& ports_;
  ModbusLink link_;
  std::string port_ = "Modbus port";  ///< the last one chosen, as messages name it
  std::string failure_;
};

}  // namespace tessara
