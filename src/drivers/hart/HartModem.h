#pragma once

#include "serial/ControlLines.h"

namespace tessara {

/// What switches a modem's carrier.
enum class HartCarrier {
  Modem,      ///< the modem itself; the control lines are left as they are
  Rts,        ///< the host: RTS is set while it sends
  RtsAndDtr,  ///< as Rts, with DTR always opposite to RTS
};

/// Switches a modem between sending and receiving by the control lines of its port.
///
/// A port without control lines, such as a pseudo-terminal, is not switched, and that is not an
/// error.
class HartModem {
 public:
  /// Sets the modem to receive. `lines` must outlive the modem.
  HartModem(HartCarrier carrier, ControlLines& lines);

  /// Sets the modem to send; false if it cannot be switched from here.
  bool startSending();
  /// Sets the modem to receive again.
  void stopSending();

  /// True if the port reports that the modem receives a carrier.
  [[nodiscard]] bool hearsCarrier() const { return lines_.hasCarrier(); }

 private:
  HartCarrier carrier_;
  ControlLines& lines_;
};

}  // namespace tessara
