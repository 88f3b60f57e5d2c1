#include "drivers/nfc/TagCommands.h"

#include <algorithm>

#include "drivers/nfc/NfcFault.h"

namespace tessara {

namespace {

AirRequest plainRequest(std::uint8_t command, Bytes data = {}) {
  return {airFlags::highDataRate, command, {}, std::move(data)};
}

}  // namespace

AirRequest inventoryRequest() {
  constexpr std::uint8_t noMask = 0x00;
  constexpr auto inventoryFlags =
      static_cast<std::uint8_t>(airFlags::highDataRate | airFlags::inventory | airFlags::oneSlot);
  return {inventoryFlags, tagCommand::inventory, {}, {noMask}};
}

TagUid uidOf(std::span<const std::uint8_t> inventoryData) {
  TagUid uid{};
  if (inventoryData.size() != 1 + uid.size()) {
    throw NfcFault(NfcFaultKind::Damage, "the answer to an inventory has no tag number");
  }
  std::copy(inventoryData.begin() + 1, inventoryData.end(), uid.rbegin());
  return uid;
}

AirRequest readControlRequest() {
  return plainRequest(tagCommand::readDynamic, {mailboxControl});
}

AirRequest writeControlRequest(std::uint8_t control) {
  return plainRequest(tagCommand::writeDynamic, {mailboxControl, control});
}

AirRequest writeMessageRequest(std::span<const std::uint8_t> message) {
  Bytes data{static_cast<std::uint8_t>(message.size() - 1)};
  data.insert(data.end(), message.begin(), message.end());
  return plainRequest(tagCommand::writeMessage, std::move(data));
}

AirRequest messageLengthRequest() {
  return plainRequest(tagCommand::readMessageLength);
}

AirRequest readMessageRequest(std::size_t offset, std::size_t count) {
  return plainRequest(tagCommand::readMessage,
                      {static_cast<std::uint8_t>(offset), static_cast<std::uint8_t>(count - 1)});
}

}  // namespace tessara
