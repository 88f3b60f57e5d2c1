#include "drivers/nfc/TagCommands.h"

#include <algorithm>

#include "drivers/nfc/NfcFault.h"

namespace tessara {

namespace {

AirRequest plainRequest(std::uint8_t command, Bytes data = {}) {
  return {airFlags::kHighDataRate, command, {}, std::move(data)};
}

}  // namespace

AirRequest inventoryRequest() {
  constexpr std::uint8_t kNoMask = 0x00;
  constexpr auto kFlags = static_cast<std::uint8_t>(airFlags::kHighDataRate | airFlags::kInventory |
                                                    airFlags::kOneSlot);
  return {kFlags, tagCommand::kInventory, {}, {kNoMask}};
}

TagUid uidOf(std::span<const std::uint8_t> inventoryData) {
  TagUid uid{};
  if (inventoryData.size() != 1 + uid.size()) {
    throw NfcFault(NfcFaultKind::Damage, "the answer to an inventory has no number of a tag");
  }
  std::copy(inventoryData.begin() + 1, inventoryData.end(), uid.rbegin());
  return uid;
}

AirRequest readControlRequest() {
  return plainRequest(tagCommand::kReadDynamic, {kMailboxControl});
}

AirRequest writeControlRequest(std::uint8_t control) {
  return plainRequest(tagCommand::kWriteDynamic, {kMailboxControl, control});
}

AirRequest writeMessageRequest(std::span<const std::uint8_t> message) {
  Bytes data{static_cast<std::uint8_t>(message.size() - 1)};
  data.insert(data.end(), message.begin(), message.end());
  return plainRequest(tagCommand::kWriteMessage, std::move(data));
}

AirRequest messageLengthRequest() {
  return plainRequest(tagCommand::kReadMessageLength);
}

AirRequest readMessageRequest(std::size_t offset, std::size_t count) {
  return plainRequest(tagCommand::kReadMessage,
                      {static_cast<std::uint8_t>(offset), static_cast<std::uint8_t>(count - 1)});
}

}  // namespace tessara
