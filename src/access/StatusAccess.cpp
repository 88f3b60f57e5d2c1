#include "access/StatusAccess.h"

#include <chrono>
#include <utility>

#include "access/RegisterDecoding.h"
#include "base/Text.h"
#include "control/Control.h"
#include "knowledge/ChannelStatus.h"
#include "knowledge/ModuleStatus.h"

namespace tessara {
namespace {

constexpr std::chrono::milliseconds errorWordDelay{100};

/// Entries of TextModulInfo: the titles of the status labels' tool tips.
constexpr std::size_t moduleStatusTitle = 21;
constexpr std::size_t channelStatusTitle = 22;

void repeatInToolTip(Widget& label, std::size_t title) {
  label.setToolTipTitle(moduleWide().TextModulInfo[title]);
  label.setToolTipText(label.caption());
}

}  // namespace

void Control::readRegisterStatus(const StatusAccess& how) {
  StatusWord = wordOf(readWords(RegDevStatus, 1), 0);
  LedWord = elementOf(readWords(RegLedStatus, 1), 0);
  setStatus({});
  yieldIf(how.yields);
  panel.ImageDevState.setPicture(pictureOther);
  const bool bNoteUsbPower = how.notesUsbPowerOverNfc || !bNFCReader;
  if ((StatusWord & errorWordWaits) != 0) {
    showModulState(DecodeModuleErrorBits(readErrorWord(how.readsErrorWordTwice), moduleWide()),
                   bNoteUsbPower ? LedWord : 0);
  } else {
    showModuleStatus(StatusWord, bNoteUsbPower ? LedWord : 0);
  }
  StatusWord = wordOf(readWords(RegChnIn, 1), 0);
  yieldIf(how.yields);
  const std::int16_t output = wordOf(readWords(RegChnOut, 1), 0);
  yieldIf(how.yields);
  showChnState(DecodeChannelStatus(StatusWord, output, bNFCReader, FamilyID, moduleWide()));
}

std::int16_t Control::readErrorWord(bool bTwice) {
  if (bTwice) {
    platform_.eventLoop().sleep(errorWordDelay);
    (void)readWords(RegDevError, 1);
    platform_.eventLoop().sleep(errorWordDelay);
  }
  return wordOf(readWords(RegDevError, 1), 0);
}

void Control::readHartStatus(const StatusAccess& how) {
  yieldIf(how.yields);
  Cmd48Reply reply{};
  const bool bReplied = comm().CMD48(reply) >= 1;
  std::u16string module = bReplied ? decimalText(std::int32_t{reply[1]}) : std::u16string();
  if (bReplied || how.treatsSilenceAsHealthy) {
    setStatus({});
    yieldIf(how.yields);
    panel.ImageDevState.setPicture(pictureOther);
    if (reply[1] == 0) {
      module += u" -> " + moduleWide().TextStatus[0];
      panel.ImageDevState.setPicture(pictureGood);
    }
  }
  showModulState(std::move(module), 0);
  showChnState(bReplied ? decimalText(std::int32_t{reply[0]}) : std::u16string());
}

void Control::showModuleStatus(std::int16_t statusWord, std::int32_t ledWord) {
  if (statusWord == 0 && !bNFCReader) {
    panel.ImageDevState.setPicture(pictureGood);
  }
  showModulState(DecodeModuleStatusBits(statusWord, bNFCReader, FamilyID, moduleWide()), ledWord);
}

void Control::showModulState(std::u16string text, std::int32_t ledWord) {
  if ((ledWord & usbPowered) != 0) {
    text.insert(0, usbPowerText);
  }
  panel.LblModulState.setCaption(std::move(text));
  repeatInToolTip(panel.LblModulState, moduleStatusTitle);
}

void Control::showChnState(std::u16string text) {
  panel.LblChnState.setCaption(std::move(text));
  repeatInToolTip(panel.LblChnState, channelStatusTitle);
}

}  // namespace tessara
