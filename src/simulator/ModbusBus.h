#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

#include "simulator/ModbusCodec.h"
#include "simulator/ModbusSlave.h"
#include "simulator/SimulatedLine.h"
#include "simulator/SimulatedModule.h"

namespace tessara {

/// A request seen on a line, with the bytes sent in answer: none if there was no answer.
struct SeenRequest {
  MasterRequest request;
  Bytes answer;
};

/// Counts of frames seen on a line.
struct LineCounters {
  std::uint64_t requests = 0;  ///< addressed to a module on this line
  std::uint64_t foreign = 0;   ///< intact, but for another address, or for all
  std::uint64_t damaged = 0;   ///< with a wrong checksum or length
};

/// The Modbus modules on one line.
class ModbusBus final : public SimulatedLine {
 public:
  /// Requests that the log keeps; older ones are dropped.
  static constexpr std::size_t maxLogged = 1000;

  /// Throws std::invalid_argument if there is no module, if two share an address, or if a module is
  /// invalid.
  explicit ModbusBus(std::vector<SimulatedModule> modules);

  std::vector<SimulatedAnswer> receive(std::span<const std::uint8_t> bytes) override;
  std::optional<SimulatedAnswer> silence() override;
  [[nodiscard]] bool isFrameOpen() const override { return !assembler_.empty(); }
  void forgetOpenFrame() override { assembler_.takeAll(); }

  /// The module at this address; throws std::out_of_range if there is none.
  ModbusSlave& slave(std::uint8_t address);

  /// All modules, in the order in which they were given.
  std::vector<ModbusSlave>& slaves() { return slaves_; }

  [[nodiscard]] const LineCounters& counters() const { return counters_; }
  [[nodiscard]] const std::deque<SeenRequest>& log() const { return log_; }

 private:
  std::optional<SimulatedAnswer> answer(const Bytes& frame);
  ModbusSlave* find(std::uint8_t address);

  std::vector<ModbusSlave> slaves_;
  ModbusFrameAssembler assembler_;
  LineCounters counters_;
  std::deque<SeenRequest> log_;
};

}  // namespace tessara
