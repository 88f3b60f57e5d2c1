#include "serial/linux/TerminalRate.h"

// The kernel's own header, for rates without a constant; <termios.h> must not stand beside it.
#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace tessara {

std::uint32_t terminalRate(int descriptor) {
  ::termios2 settings{};
  return ::ioctl(descriptor, TCGETS2, &settings) == 0 ? settings.c_ospeed : 0;
}

bool setTerminalRate(int descriptor, std::uint32_t rate) {
  ::termios2 settings{};
  if (::ioctl(descriptor, TCGETS2, &settings) != 0) return false;
  settings.c_cflag &= ~static_cast<::tcflag_t>(CBAUD | CIBAUD);
  settings.c_cflag |= BOTHER;
  settings.c_ispeed = settings.c_ospeed = rate;
  return ::ioctl(descriptor, TCSETS2, &settings) == 0;
}

}  // namespace tessara
