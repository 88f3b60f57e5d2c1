#pragma once

#include <cstdint>
#include <vector>

#include "simulator/Fault.h"
#include "simulator/ModbusCodec.h"
#include "simulator/SimulatedModule.h"

namespace tessara {

/// One module on a Modbus line: the answers that follow from its registers and its faults.
class ModbusSlave {
 public:
  /// Throws std::invalid_argument if the address is not a module's or a fault is invalid.
  explicit ModbusSlave(SimulatedModule module);

  [[nodiscard]] std::uint8_t address() const { return module_.address; }

  /// The answer to a request that is addressed to this module. Each call counts as one request.
  SimulatedAnswer answer(const MasterRequest& request);

  /// Replaces all faults, and counts requests from 1 again. Throws std::invalid_argument if a
  /// fault is invalid; nothing changes then.
  void setFaults(std::vector<Fault> faults);

  /// Sets the register, and adds it if the module does not have it.
  void setRegister(std::uint16_t number, std::uint16_t word);

 private:
  [[nodiscard]] Bytes healthyAnswer(const MasterRequest& request) const;
  [[nodiscard]] Bytes readInputRegisters(const MasterRequest& request) const;
  [[nodiscard]] Bytes reportServerId() const;
  [[nodiscard]] Bytes refuse(const MasterRequest& request, ModbusException code) const;

  SimulatedModule module_;  // its list of faults has moved to plan_
  FaultPlan plan_;
};

}  // namespace tessara
