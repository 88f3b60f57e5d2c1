#include "serial/PseudoTerminal.h"

#include <array>
#include <cerrno>
#include <iterator>
#include <system_error>

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

namespace tessara::testing {

PseudoTerminal::PseudoTerminal() {
  std::array<char, 64> name{};
  if (::openpty(&line_, &terminal_, name.data(), nullptr, nullptr) != 0) {
    throw std::system_error(errno, std::generic_category(), "openpty");
  }
  device_ = name.data();
  ::fcntl(line_, F_SETFD, FD_CLOEXEC);
  ::fcntl(terminal_, F_SETFD, FD_CLOEXEC);
  ::termios settings{};
  ::tcgetattr(terminal_, &settings);
  ::cfmakeraw(&settings);
  ::tcsetattr(terminal_, TCSANOW, &settings);
}

PseudoTerminal::~PseudoTerminal() {
  ::close(terminal_);
  unplug();
}

PortSettings PseudoTerminal::settings() const {
  ::termios now{};
  if (::tcgetattr(terminal_, &now) != 0) {
    throw std::system_error(errno, std::generic_category(), "tcgetattr");
  }
  return {now.c_iflag,
          now.c_oflag,
          now.c_cflag,
          now.c_lflag,
          {std::begin(now.c_cc), std::end(now.c_cc)},
          ::cfgetispeed(&now),
          ::cfgetospeed(&now)};
}

void PseudoTerminal::unplug() {
  if (line_ >= 0) {
    ::close(line_);
    line_ = -1;
  }
}

}  // namespace tessara::testing
