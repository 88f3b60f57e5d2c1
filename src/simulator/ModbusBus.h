#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <vector>

#include "simulator/ModbusCodec.h"
#include "simulator/ModbusSlave.h"
#include "simulator/SimulatedModule.h"

namespace tessara {

/// A request that was seen on a line, with the bytes sent for it: none if there was no answer.
struct SeenRequest {
  MasterRequest request;
  Bytes answer;
};

/// How many frames a line has seen.
struct LineCounters {
  std::uint64_t requests = 0;  ///< addressed to a module on this line
  std::uint64_t foreign = 0;   ///< sound, but for another station, or for all
  std::uint64_t damaged = 0;   ///< with a wrong checksum or length
};

/// The modules on one line: turns the bytes of a master into answers. Knows no device and no clock.
class ModbusBus {
 public:
  /// Requests that the log keeps; older ones leave it.
  static constexpr std::size_t kLogLimit = 1000;

  /// Throws std::invalid_argument if there is no module, if two share an address, or if a module is
  /// impossible.
  explicit ModbusBus(std::vector<SimulatedModule> modules);

  /// The answers to all requests that are complete with these bytes, in their order.
  std::vector<SimulatedAnswer> receive(std::span<const std::uint8_t> bytes);

  /// The line has fallen silent behind a frame that was open. Nothing if there is no answer to it.
  std::optional<SimulatedAnswer> silence();

  /// Drops a frame that has begun: its line is gone.
  void forgetOpenFrame() { assembler_.takeAll(); }

  /// True while a frame has begun that only further bytes or silence will end.
  [[nodiscard]] bool isFrameOpen() const { return !assembler_.empty(); }

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
