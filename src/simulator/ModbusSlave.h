#pragma once

#include <cstdint>
#include <vector>

#include "simulator/Fault.h"
#include "simulator/ModbusCodec.h"
#include "simulator/SimulatedModule.h"

namespace tessara {

/// One module as a Modbus station: the answers that its registers and its faults give.
class ModbusSlave {
 public:
  /// Throws std::invalid_argument if the address is no station's or a fault is impossible.
  explicit ModbusSlave(SimulatedModule module);

  [[nodiscard]] std::uint8_t address() const { return module_.address; }

  /// The answer to a request that is addressed to this module. Each call counts as one request.
  SimulatedAnswer answer(const MasterRequest& request);

  /// Replaces all faults, and counts requests from 1 again. Throws std::invalid_argument if a
  /// fault is impossible; then all stays as it was.
  void setFaults(std::vector<Fault> faults);

  /// Gives the register a value, and the module the register if it has none of that number.
  void setRegister(std::uint16_t number, std::uint16_t word);

 private:
  [[nodiscard]] Bytes healthyAnswer(const MasterRequest& request) const;
  [[nodiscard]] Bytes readInputRegisters(const MasterRequest& request) const;
  [[nodiscard]] Bytes reportServerId() const;
  [[nodiscard]] Bytes refuse(const MasterRequest& request, ModbusException code) const;

  SimulatedModule module_;  // its list of faults has become the plan
  FaultPlan plan_;
};

}  // namespace tessara
