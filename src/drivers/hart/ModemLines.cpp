#include "drivers/hart/ModemLines.h"

#include <utility>

#include <sys/ioctl.h>
#include <termios.h>

namespace tessara {

int systemModemLineCall(int descriptor, unsigned long request, int& lines) {
  return ::ioctl(descriptor, request, &lines);
}

ModemLines::ModemLines(HartCarrier carrier, ModemLineCall call)
    : carrier_(carrier), call_(std::move(call)) {}

void ModemLines::open(int descriptor) {
  descriptor_ = descriptor;
  stopSending();
}

bool ModemLines::startSending() {
  if (carrier_ == HartCarrier::Modem) return false;
  if (carrier_ == HartCarrier::RtsAndDtr) clear(TIOCM_DTR);
  return set(TIOCM_RTS);
}

void ModemLines::stopSending() {
  if (carrier_ == HartCarrier::Modem) return;
  clear(TIOCM_RTS);
  if (carrier_ == HartCarrier::RtsAndDtr) set(TIOCM_DTR);
}

bool ModemLines::hearsCarrier() const {
  int lines = 0;
  return call_(descriptor_, TIOCMGET, lines) == 0 && (lines & TIOCM_CAR) != 0;
}

bool ModemLines::set(int lines) {
  return call_(descriptor_, TIOCMBIS, lines) == 0;
}

bool ModemLines::clear(int lines) {
  return call_(descriptor_, TIOCMBIC, lines) == 0;
}

}  // namespace tessara
