#include "control/Transport.h"

#include <algorithm>

#include "base/Text.h"
#include "control/Control.h"
#include "ports/AdapterWords.h"

namespace tessara {
namespace {

/// Size of the buffer for a reply of the reader's library.
constexpr std::size_t replyBuffer = 256;

std::int32_t hexadecimalAt(const std::u16string& text, std::size_t position) {
  constexpr std::u16string_view digits = u"0123456789ABCDEF0123456789abcdef";
  std::int32_t number = 0;
  for (const char16_t c : text.substr(std::min(position, text.size()), 2)) {
    const auto digit = digits.find(c);
    if (digit == std::u16string_view::npos) {
      return 0;
    }
    number = number * 16 + static_cast<std::int32_t>(digit % 16);
  }
  return number;
}

}  // namespace

std::u16string McuRevisionText(const std::u16string& reply) {
  return decimalText(hexadecimalAt(reply, 4)) + u"." + decimalText(hexadecimalAt(reply, 6)) + u"." +
         decimalText(hexadecimalAt(reply, 8));
}

bool Control::connectNfcReader() {
  return platform_.nfcReaderLibrary().CR95HFDLL_USBconnect() == NfcReaderLibrary::success;
}

bool Control::probeNfcReader() {
  NfcReaderLibrary& reader = platform_.nfcReaderLibrary();
  std::string reply(replyBuffer, '\0');
  if (reader.CR95HFDll_Echo(reply) != NfcReaderLibrary::success) {
    return false;
  }
  // An older board answers the echo but does not know its revision; it is still a reader.
  (void)reader.CR95HFDLL_getMCUrev(reply);
  sNFCMCURevision = fromUtf8(reply.substr(0, reply.find('\0')));
  sNFCMCURevision = McuRevisionText(sNFCMCURevision);
  panel.ComboComPort.addItem(std::u16string(usbReaderLine));
  return true;
}

void Control::selectCommObject(bool bNfc) {
  const ModuleWide& wide = moduleWide();
  const auto select = [this](const std::shared_ptr<tessara::CommunicationObject>& object) {
    CommunicationObject = object;
    CommObject = object;
  };
  if (bNfc) {
    select(wide.NfcCommObject);
    live(wide.NfcCommObject, "NfcCommObject").InitNFCObject();
  } else if (HartMode) {
    select(wide.HartCommObject);
    live(wide.HartCommObject, "HartCommObject").InitHartObject();
  } else {
    select(wide.ModbusCommObject);
    live(wide.ModbusCommObject, "ModbusCommObject").InitModbusObject();
  }
  bNFCReader = bNfc;
}

}  // namespace tessara
