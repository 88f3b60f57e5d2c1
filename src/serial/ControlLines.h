#pragma once

namespace tessara {

/// The control lines of a serial port. A port may have none, as a pseudo-terminal does.
class ControlLines {
 public:
  ControlLines() = default;
  ControlLines(const ControlLines&) = delete;
  ControlLines& operator=(const ControlLines&) = delete;
  virtual ~ControlLines() = default;

  /// Sets or clears Request To Send; false if the port has no such line.
  virtual bool setRts(bool isOn) = 0;

  /// Sets or clears Data Terminal Ready; false if the port has no such line.
  virtual bool setDtr(bool isOn) = 0;

  /// True if the port reports a received carrier.
  [[nodiscard]] virtual bool hasCarrier() const = 0;
};

}  // namespace tessara
