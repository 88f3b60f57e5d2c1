#include "drivers/modbus/UnnamedRate.h"

#include <cstdlib>

// The kernel's own header, for rates that have no name; <termios.h> must not stand beside it.
#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace tessara {

bool setUnnamedRate(int descriptor, std::int32_t rate) {
  ::termios2 settings{};
  if (rate <= 0 || ::ioctl(descriptor, TCGETS2, &settings) != 0) {
    return false;
  }
  settings.c_cflag &= ~static_cast<::tcflag_t>(CBAUD | CIBAUD);
  settings.c_cflag |= BOTHER;
  settings.c_ispeed = settings.c_ospeed = static_cast<::speed_t>(rate);
  return ::ioctl(descriptor, TCSETS2, &settings) == 0 &&
         ::ioctl(descriptor, TCGETS2, &settings) == 0 && isNearRate(rate, settings.c_ospeed);
}

bool isNearRate(std::int32_t wanted, std::uint32_t actual) {
  constexpr std::int64_t smallestPart = 50;
  return std::llabs(std::int64_t{wanted} - actual) * smallestPart <= wanted;
}

}  // namespace tessara
