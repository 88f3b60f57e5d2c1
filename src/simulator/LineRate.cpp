#include "simulator/LineRate.h"

// The kernel's own header, for rates that have no name; <termios.h> must not stand beside it.
#include <asm/termbits.h>
#include <sys/ioctl.h>

namespace tessara {

namespace {

constexpr std::int64_t kBitsPerCharacter = 11;
constexpr LineRate kFastestCountedRate = 19200;

}  // namespace

std::chrono::nanoseconds characterTime(LineRate rate) {
  return std::chrono::nanoseconds(std::chrono::seconds(kBitsPerCharacter)) / rate;
}

std::chrono::nanoseconds silentTime(LineRate rate) {
  return rate > kFastestCountedRate ? std::chrono::microseconds(1750) : characterTime(rate) * 7 / 2;
}

LineRate lineRateOf(int descriptor) {
  ::termios2 settings{};
  const bool known = ::ioctl(descriptor, TCGETS2, &settings) == 0;
  return known && settings.c_ospeed != 0 ? settings.c_ospeed : kDefaultLineRate;
}

}  // namespace tessara
