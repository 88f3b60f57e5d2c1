#include "drivers/hart/HartModem.h"

namespace tessara {

HartModem::HartModem(HartCarrier carrier, ControlLines& lines) : carrier_(carrier), lines_(lines) {
  stopSending();
}

bool HartModem::startSending() {
  if (carrier_ == HartCarrier::Modem) return false;
  if (carrier_ == HartCarrier::RtsAndDtr) lines_.setDtr(false);
  return lines_.setRts(true);
}

void HartModem::stopSending() {
  if (carrier_ == HartCarrier::Modem) return;
  lines_.setRts(false);
  if (carrier_ == HartCarrier::RtsAndDtr) lines_.setDtr(true);
}

}  // namespace tessara
