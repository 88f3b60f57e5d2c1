#include "drivers/modbus/SerialSettings.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>

#include "drivers/PortLock.h"
#include "drivers/modbus/UnnamedRate.h"

namespace tessara {

namespace {

struct Rate {
  std::int32_t bitsPerSecond;
  ::speed_t speed;
};

constexpr std::array kRates{
    Rate{110, B110},         Rate{300, B300},         Rate{600, B600},
    Rate{1200, B1200},       Rate{2400, B2400},       Rate{4800, B4800},
    Rate{9600, B9600},       Rate{19200, B19200},     Rate{38400, B38400},
    Rate{57600, B57600},     Rate{115200, B115200},   Rate{230400, B230400},
    Rate{460800, B460800},   Rate{500000, B500000},   Rate{576000, B576000},
    Rate{921600, B921600},   Rate{1000000, B1000000}, Rate{1152000, B1152000},
    Rate{1500000, B1500000}, Rate{2000000, B2000000}, Rate{2500000, B2500000},
    Rate{3000000, B3000000}, Rate{3500000, B3500000}, Rate{4000000, B4000000},
};

}  // namespace

std::optional<::speed_t> speedOf(std::int32_t rate) {
  const auto* const row = std::find_if(kRates.begin(), kRates.end(), [rate](const Rate& known) {
    return known.bitsPerSecond == rate;
  });
  return row == kRates.end() ? std::nullopt : std::optional(row->speed);
}

void applySettings(int descriptor, std::int32_t rate) {
  const auto speed = speedOf(rate);
  ::termios settings{};
  if (::tcgetattr(descriptor, &settings) != 0) {
    throw PortError::fromErrno(errno);
  }
  ::cfmakeraw(&settings);
  settings.c_iflag |= INPCK;
  settings.c_iflag &= ~static_cast<::tcflag_t>(IXOFF | IXANY);
  settings.c_cflag &= ~static_cast<::tcflag_t>(CSTOPB | PARODD | CRTSCTS | CIBAUD);
  settings.c_cflag |= CREAD | CLOCAL | PARENB;
  settings.c_cc[VMIN] = 1;
  settings.c_cc[VTIME] = 0;
  if (speed) {
    ::cfsetspeed(&settings, *speed);
  }

  int result = ::tcsetattr(descriptor, TCSANOW, &settings);
  if (result != 0 && errno == EINVAL) {
    settings.c_cflag &= ~static_cast<::tcflag_t>(PARENB);
    result = ::tcsetattr(descriptor, TCSANOW, &settings);
  }
  if (result != 0) {
    throw PortError::fromErrno(errno);
  }
  if (!speed && !setUnnamedRate(descriptor, rate)) {
    throw PortError(PortProblem::Refused,
                    "cannot be opened at " + std::to_string(rate) + " bit/s: no such rate");
  }
  ::tcflush(descriptor, TCIOFLUSH);
}

}  // namespace tessara
