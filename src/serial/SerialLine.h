#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "serial/ControlLines.h"
#include "serial/LineSettings.h"

namespace tessara {

/// A serial port, open and held by one owner alone for as long as the object lives.
///
/// The port is locked before any of its settings is touched, so that a port in use by another
/// program is not disturbed, and it is handed back with the settings that it had. Output that is
/// still pending then is dropped, so that closing never waits for a stopped line.
///
/// Reading and writing throw LineError if the port has gone or the access was cancelled. All
/// functions but `cancel` belong to one thread.
class SerialLine final : public ControlLines {
 public:
  using Clock = std::chrono::steady_clock;

  /// Opens and locks `device` without waiting for a carrier, and changes nothing about it. Throws
  /// PortError.
  explicit SerialLine(const std::string& device);
  ~SerialLine() override;

  /// Sets the port to raw bytes in this format, without flow control, and discards what is in its
  /// buffers. A port that refuses parity, as a pseudo-terminal does, does without. Throws
  /// PortError, also if the port does not come within 2 % of the rate.
  void configure(const LineSettings& settings);

  bool setRts(bool isOn) override;
  bool setDtr(bool isOn) override;
  [[nodiscard]] bool hasCarrier() const override;

  /// Hands over `bytes` for sending. Returns the number of bytes that the port has taken: fewer if
  /// it did not take all of them before `deadline`.
  std::size_t write(std::span<const std::uint8_t> bytes, Clock::time_point deadline);

  /// Waits until all that was written has left the port, as far as the system knows: an adapter may
  /// hold a few characters more. False if it had not at `deadline`.
  bool drain(Clock::time_point deadline);

  /// Waits for input; false if none came before `deadline`. What has come already counts even if
  /// the deadline has passed.
  bool waitForInput(Clock::time_point deadline);

  /// Reads what has come, as soon as anything has. Returns the number of bytes in `buffer`: 0 if
  /// nothing came before `deadline`.
  std::size_t read(std::span<std::uint8_t> buffer, Clock::time_point deadline);

  /// Discards the input that has come so far.
  void discardInput();

  /// Ends the wait that is under way, if any, and all later ones with a LineError. May be called
  /// from any thread.
  void cancel() noexcept;

  /// The system's own handle, for a library that reads and writes by itself. It stays the line's.
  [[nodiscard]] std::intptr_t nativeHandle() const;

 private:
  struct System;
  std::unique_ptr<System> system_;
};

}  // namespace tessara
