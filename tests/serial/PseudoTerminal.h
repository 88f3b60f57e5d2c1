#pragma once

#include <string>
#include <tuple>
#include <vector>

#include <termios.h>

namespace tessara::testing {

/// The settings of a port in a form that can be compared.
using PortSettings = std::tuple<::tcflag_t, ::tcflag_t, ::tcflag_t, ::tcflag_t, std::vector<::cc_t>,
                                ::speed_t, ::speed_t>;

/// A serial port made of a pseudo-terminal, set to raw bytes, and the line behind it.
class PseudoTerminal {
 public:
  PseudoTerminal();
  ~PseudoTerminal();
  PseudoTerminal(const PseudoTerminal&) = delete;
  PseudoTerminal& operator=(const PseudoTerminal&) = delete;

  /// The port to connect to.
  [[nodiscard]] const std::string& device() const { return device_; }
  /// The port, open beside the program under test.
  [[nodiscard]] int terminal() const { return terminal_; }
  /// The other end of the line.
  [[nodiscard]] int line() const { return line_; }

  [[nodiscard]] PortSettings settings() const;
  /// Cuts the line, as when an adapter is unplugged.
  void unplug();

 private:
  int line_ = -1;
  int terminal_ = -1;
  std::string device_;
};

}  // namespace tessara::testing
