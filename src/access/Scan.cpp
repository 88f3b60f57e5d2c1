#include <exception>
#include <limits>

#include "access/StatusAccess.h"
#include "control/Control.h"
#include "knowledge/Firmware.h"

namespace tessara {
namespace {

/// Maximum failed scans per control; the next one ends the scan.
constexpr std::int16_t maxScanFailures = 10;
/// The same in every language, so it is not in the text tables.
constexpr std::u16string_view offlineText = u"Offline";

}  // namespace

void Control::ScanTick() {
  if (!HostActive && !DeviceConnected) {
    ScanDevice();
  }
}

void Control::ScanDevice() {
  try {
    raiseModulActive(Activity::Scanning);
    yield();
    connect();
    yield();
    if (!DeviceConnected) {
      closeConnection();
      stopScan();
      return;
    }
    if (VendorID == hartVendor) {
      readHartStatus(statusOfScan);
    } else {
      readRegisterStatus(statusOfScan);
    }
    panel.ImageDevState.setVisible(true);
    closeConnection();
  } catch (const std::exception&) {
    failedScan();
  }
}

void Control::failedScan() {
  yield();
  closeAfterFailure();
  raiseModulActive(Activity::AccessOver);
  if (ScanErrorCount < std::numeric_limits<std::int16_t>::max()) {
    ++ScanErrorCount;
  }
  if (ScanErrorCount > maxScanFailures) {
    stopScan();
    setStatus(std::u16string(offlineText));
  }
}

}  // namespace tessara
