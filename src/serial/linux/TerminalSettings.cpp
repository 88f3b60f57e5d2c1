#include "serial/linux/TerminalSettings.h"

#include <array>
#include <cerrno>
#include <string>

#include <termios.h>

#include "serial/linux/PortErrno.h"
#include "serial/linux/TerminalRate.h"

namespace tessara {

namespace {

constexpr std::array<::tcflag_t, 4> characterSizes{CS5, CS6, CS7, CS8};
constexpr int minDataBits = 5;

void set(::tcflag_t& flags, ::tcflag_t flag, bool isOn) {
  flags = isOn ? flags | flag : flags & ~flag;
}

void setFormat(::termios& terminal, const LineSettings& settings) {
  ::cfmakeraw(&terminal);
  set(terminal.c_iflag, IXOFF | IXANY | PARMRK, false);
  set(terminal.c_iflag, INPCK, settings.checksParity);
  set(terminal.c_cflag, CSIZE | CRTSCTS | CIBAUD, false);
  set(terminal.c_cflag,
      characterSizes.at(static_cast<std::size_t>(settings.dataBits - minDataBits)), true);
  set(terminal.c_cflag, CREAD | CLOCAL, true);
  set(terminal.c_cflag, CSTOPB, settings.stopBits == 2);
  set(terminal.c_cflag, PARENB, settings.parity != Parity::None);
  set(terminal.c_cflag, PARODD, settings.parity == Parity::Odd);
  terminal.c_cc[VMIN] = 1;
  terminal.c_cc[VTIME] = 0;
}

/// A pseudo-terminal has no parity and refuses it with EINVAL.
void applyWithoutParityIfRefused(int descriptor, ::termios& terminal) {
  int result = ::tcsetattr(descriptor, TCSANOW, &terminal);
  if (result != 0 && errno == EINVAL) {
    set(terminal.c_cflag, PARENB | PARODD, false);
    result = ::tcsetattr(descriptor, TCSANOW, &terminal);
  }
  if (result != 0) throw portErrorOf(errno);
}

bool hasRate(int descriptor, std::int32_t rate) {
  return isNearRate(rate, terminalRate(descriptor));
}

}  // namespace

void applySettings(int descriptor, const LineSettings& settings) {
  ::termios terminal{};
  if (::tcgetattr(descriptor, &terminal) != 0) throw portErrorOf(errno);
  setFormat(terminal, settings);
  const std::int32_t rate = settings.rate;
  // Fails for a rate that has no constant, and takes the value of a constant for the constant.
  const bool isNamed = rate > 0 && ::cfsetspeed(&terminal, static_cast<::speed_t>(rate)) == 0;
  applyWithoutParityIfRefused(descriptor, terminal);
  const bool isSet = (isNamed && hasRate(descriptor, rate)) ||
                     (rate > 0 && setTerminalRate(descriptor, static_cast<std::uint32_t>(rate)) &&
                      hasRate(descriptor, rate));
  if (!isSet) {
    throw PortError(PortProblem::Refused,
                    "cannot be opened at " + std::to_string(rate) + " bit/s: no such rate");
  }
  ::tcflush(descriptor, TCIOFLUSH);
}

}  // namespace tessara
