#include <exception>
#include <limits>

#include "access/RegisterDecoding.h"
#include "base/Text.h"
#include "control/ModulInfoFLII.h"
#include "knowledge/ChannelStatus.h"
#include "knowledge/Firmware.h"
#include "knowledge/ModuleStatus.h"

namespace tessara {
namespace {

/// So many failed passes are borne in a control's life; the next one ends the scan.
constexpr std::int16_t bearableFailures = 10;
/// The same in every language: it stands in no text table.
constexpr std::u16string_view offlineText = u"Offline";

}  // namespace

void ModulInfoFLII::ScanTick() {
  if (!HostActive && !DeviceConnected) {
    ScanDevice();
  }
}

void ModulInfoFLII::ScanDevice() {
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
      scanHart();
    } else {
      scanRegisters();
    }
    closeConnection();
  } catch (const std::exception&) {
    failedScan();
  }
}

void ModulInfoFLII::scanHart() {
  yield();
  Cmd48Reply reply{};
  const std::int16_t count = comm().CMD48(reply);
  setStatus({});
  yield();
  panel.ImageDevState.setPicture(pictureOther);
  std::u16string module;
  std::u16string channel;
  if (count >= 1) {
    module = decimalText(std::int32_t{reply[1]});
    channel = decimalText(std::int32_t{reply[0]});
  }
  // Tested whatever the count: without a reply the byte is still zero, and the module counts as
  // good.
  if (reply[1] == 0) {
    module += u" -> " + moduleWide().TextStatus[0];
    panel.ImageDevState.setPicture(pictureGood);
  }
  showModulState(std::move(module));
  showChnState(std::move(channel));
  panel.ImageDevState.setVisible(true);
}

void ModulInfoFLII::scanRegisters() {
  readModuleWords();
  setStatus({});
  yield();
  panel.ImageDevState.setPicture(pictureOther);
  showModuleWords();
  StatusWord = wordOf(readWords(RegChnIn, 1), 0);
  yield();
  const std::int16_t output = wordOf(readWords(RegChnOut, 1), 0);
  yield();
  showChnState(DecodeChannelStatus(StatusWord, output, bNFCReader, FamilyID, moduleWide()));
  panel.ImageDevState.setVisible(true);
}

void ModulInfoFLII::failedScan() {
  yield();
  closeAfterFailure();
  raiseModulActive(Activity::AccessOver);
  if (ScanErrorCount < std::numeric_limits<std::int16_t>::max()) {
    ++ScanErrorCount;
  }
  if (ScanErrorCount > bearableFailures) {
    stopScan();
    setStatus(std::u16string(offlineText));
  }
}

}  // namespace tessara
