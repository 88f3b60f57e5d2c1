#pragma once

#include <functional>

namespace tessara {

/// Who switches a modem's carrier.
enum class HartCarrier {
  Modem,      ///< the modem itself; the control lines are left as they are
  Rts,        ///< the host: RTS is set while it sends
  RtsAndDtr,  ///< as Rts, with DTR always opposite to RTS
};

/// One call of the system's ioctl() on the control lines of a serial port.
using ModemLineCall = std::function<int(int descriptor, unsigned long request, int& lines)>;

/// The system's own.
int systemModemLineCall(int descriptor, unsigned long request, int& lines);

/// The control lines of a port by which a modem is switched between sending and listening.
///
/// A port that has none, as a pseudo-terminal, is switched by nobody, and that is no error.
class ModemLines {
 public:
  explicit ModemLines(HartCarrier carrier, ModemLineCall call = systemModemLineCall);

  /// Takes the lines of an open port, and has the modem listen.
  void open(int descriptor);

  /// Has the modem send; false if nobody here can tell it to.
  bool startSending();
  /// Has the modem listen again.
  void stopSending();

  /// True if the port says that the modem receives a carrier.
  [[nodiscard]] bool hearsCarrier() const;

 private:
  bool set(int lines);
  bool clear(int lines);

  HartCarrier carrier_;
  ModemLineCall call_;
  int descriptor_ = -1;
};

}  // namespace tessara
