#pragma once

#include <chrono>
#include <deque>
#include <memory>
#include <optional>
#include <span>

#include "drivers/nfc/Cr95Hf.h"
#include "drivers/nfc/HidDevice.h"
#include "simulator/nfc/SimulatedField.h"

namespace tessara {

/// The board of the USB reader, with a module's tag in its field: answers reports.
class SimulatedBoard {
 public:
  /// Throws std::invalid_argument if the module is invalid.
  explicit SimulatedBoard(SimulatedNfcModule module) : field_(std::move(module)) {}

  /// The board's answer to a report; nothing if it does not answer.
  std::optional<cr95hf::Report> answer(std::span<const std::uint8_t> report);

  SimulatedField& field() { return field_; }

 private:
  std::optional<cr95hf::Answer> answerOfChip(std::span<const std::uint8_t> command);
  [[nodiscard]] static cr95hf::Answer answerOfBoard(std::span<const std::uint8_t> request);
  cr95hf::Answer selectProtocol(std::span<const std::uint8_t> command);
  std::optional<cr95hf::Answer> sendReceive(std::span<const std::uint8_t> command);

  SimulatedField field_;
  bool isIso15693_ = false;  // selected
};

/// A USB reader that exists only inside this program. One user at a time can open it.
class SimulatedUsbReader final : public UsbReaders {
 public:
  /// Throws std::invalid_argument if the module is invalid.
  explicit SimulatedUsbReader(SimulatedNfcModule module);

  /// Throws PortError, as for a real reader, while it is in use or unplugged. The device must
  /// not outlive the reader.
  std::unique_ptr<HidDevice> open() override;

  SimulatedField& field() { return board_.field(); }

  /// Pulls the reader out, and puts it back.
  void unplug() { pluggedInFrom_ = Clock::time_point::max(); }
  void plug() { pluggedInFrom_ = Clock::time_point::min(); }

 private:
  using Clock = std::chrono::steady_clock;
  class Device;

  [[nodiscard]] bool isPluggedIn() const { return Clock::now() >= pluggedInFrom_; }
  void follow(const faults::Unplug& fault);

  SimulatedBoard board_;
  bool isInUse_ = false;
  Clock::time_point pluggedInFrom_ = Clock::time_point::min();
};

}  // namespace tessara
