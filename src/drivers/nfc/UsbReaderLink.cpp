#include "drivers/nfc/UsbReaderLink.h"

#include <utility>

#include "drivers/nfc/NfcFault.h"
#include "drivers/nfc/TagCommands.h"

namespace tessara {

UsbReaderLink::~UsbReaderLink() {
  if (!isAnswering_) return;
  try {
    reader_.command(cr95hf::fieldOff);
  } catch (const NfcFault&) {
    // A reader that has just gone has no field either.
  }
}

TagUid UsbReaderLink::selectTag() {
  isAnswering_ = false;
  reader_.echo();
  askForRevisionOnce();
  const auto selected = reader_.command(cr95hf::selectIso15693);
  isAnswering_ = true;
  if (selected.result != cr95hf::done) {
    throw NfcFault(NfcFaultKind::ReaderRefusal, "the reader does not support ISO 15693 tags");
  }
  try {
    return uidOf(dataOf(send(inventoryRequest())));
  } catch (const NfcFault& fault) {
    if (fault.kind() != NfcFaultKind::TagGone) throw;
    throw NfcFault(NfcFaultKind::NoTag, "no module in the reader's field");
  }
}

void UsbReaderLink::askForRevisionOnce() {
  if (std::exchange(isAsked_, true)) return;
  try {
    reader_.revision();
  } catch (const NfcFault& fault) {
    // An older board does not know this request, and is a reader all the same.
    if (fault.kind() != NfcFaultKind::ReaderSilent) throw;
  }
}

Bytes UsbReaderLink::exchange(const AirRequest& request) {
  return dataOf(send(request));
}

AirAnswer UsbReaderLink::send(const AirRequest& request) {
  isAnswering_ = false;
  const auto answer = reader_.command(cr95hf::sendReceive(encodeAirRequest(request)));
  isAnswering_ = true;
  return cr95hf::tagAnswerOf(answer);
}

}  // namespace tessara
