#include "access/RegisterDecoding.h"
#include "base/Text.h"
#include "control/ModulInfoFLII.h"
#include "knowledge/ChannelStatus.h"
#include "knowledge/Firmware.h"
#include "knowledge/ModuleStatus.h"

namespace tessara {
namespace {

constexpr std::chrono::milliseconds errorWordDelay{100};

}  // namespace

void ModulInfoFLII::readStatusByVendor() {
  if (VendorID == hartVendor) {
    readHartStatus();
  } else if (DevAddr == statusAddress) {
    readRegisterStatus();
  } else {
    panel.LblModulState.setCaption({});
    panel.LblChnState.setCaption({});
  }
}

void ModulInfoFLII::readHartStatus() {
  Cmd48Reply reply{};
  const std::int16_t count = comm().CMD48(reply);
  std::u16string module;
  std::u16string channel;
  if (count >= 1) {
    setStatus({});
    panel.ImageDevState.setPicture(pictureOther);
    module = decimalText(std::int32_t{reply[1]});
    channel = decimalText(std::int32_t{reply[0]});
    if (reply[1] == 0) {
      module += u" -> " + moduleWide().TextStatus[0];
      panel.ImageDevState.setPicture(pictureGood);
    }
  }
  showModulState(std::move(module));
  showChnState(std::move(channel));
}

void ModulInfoFLII::readRegisterStatus() {
  readModuleWords();
  setStatus({});
  panel.ImageDevState.setPicture(pictureOther);
  std::u16string module = (StatusWord & errorWordWaits) != 0
                              ? DecodeModuleErrorBits(readErrorWordTwice(), moduleWide())
                              : decodeModuleStatus(StatusWord);
  if ((LedWord & usbPowered) != 0) {
    module.insert(0, usbPowerText);
  }
  showModulState(std::move(module));
  StatusWord = wordOf(readWords(RegChnIn, 1), 0);
  const std::int16_t output = wordOf(readWords(RegChnOut, 1), 0);
  showChnState(DecodeChannelStatus(StatusWord, output, bNFCReader, FamilyID, moduleWide()));
}

void ModulInfoFLII::readModuleWords() {
  StatusWord = wordOf(readWords(RegDevStatus, 1), 0);
  LedWord = elementOf(readWords(RegLedStatus, 1), 0);
}

void ModulInfoFLII::showModuleWords() {
  std::u16string module =
      (StatusWord & errorWordWaits) != 0
          ? DecodeModuleErrorBits(wordOf(readWords(RegDevError, 1), 0), moduleWide())
          : decodeModuleStatus(StatusWord);
  if ((LedWord & usbPowered) != 0 && !bNFCReader) {
    module.insert(0, usbPowerText);
  }
  showModulState(std::move(module));
}

std::int16_t ModulInfoFLII::readErrorWordTwice() {
  // The first value is that of the measuring system's last cycle; only the second counts.
  platform_.eventLoop().sleep(errorWordDelay);
  (void)readWords(RegDevError, 1);
  platform_.eventLoop().sleep(errorWordDelay);
  return wordOf(readWords(RegDevError, 1), 0);
}

}  // namespace tessara
