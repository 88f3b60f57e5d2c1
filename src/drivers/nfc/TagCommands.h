#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "drivers/nfc/Iso15693.h"

namespace tessara {

/// Command codes of a tag with a mailbox, as far as readers and modules use them.
namespace tagCommand {
inline constexpr std::uint8_t kInventory = 0x01;
inline constexpr std::uint8_t kReadBlock = 0x20;
inline constexpr std::uint8_t kReadConfiguration = 0xA0;
inline constexpr std::uint8_t kWriteConfiguration = 0xA1;
inline constexpr std::uint8_t kWriteMessage = 0xAA;
inline constexpr std::uint8_t kReadMessageLength = 0xAB;
inline constexpr std::uint8_t kReadMessage = 0xAC;
inline constexpr std::uint8_t kReadDynamic = 0xAD;
inline constexpr std::uint8_t kWriteDynamic = 0xAE;
inline constexpr std::uint8_t kPresentPassword = 0xB3;
}  // namespace tagCommand

/// Registers of the tag that have to do with its mailbox. Both have the same pointer: one is among
/// the stored ones, the other among those that are lost with the field.
inline constexpr std::uint8_t kMailboxMode = 0x0D;     ///< stored; bit 0 allows the mailbox
inline constexpr std::uint8_t kMailboxControl = 0x0D;  ///< dynamic; bits in mailboxBits

/// Bits of the mailbox's control register.
namespace mailboxBits {
inline constexpr std::uint8_t kEnabled = 0x01;
inline constexpr std::uint8_t kModulePut = 0x02;      ///< a message of the module lies in it
inline constexpr std::uint8_t kReaderPut = 0x04;      ///< a message of the reader lies in it
inline constexpr std::uint8_t kCurrentModule = 0x40;  ///< the last message was the module's
inline constexpr std::uint8_t kCurrentReader = 0x80;  ///< the last message was the reader's
}  // namespace mailboxBits

/// What the mailbox holds, in bytes.
inline constexpr std::size_t kMailboxSize = 256;

/// What one request or answer moves of a message on every reader: a report of the USB reader has
/// 61 bytes for a request, of which a message takes all but flags, command, maker's code and
/// length.
inline constexpr std::size_t kPieceLength = 57;

/// Which tags are there? Answered by one tag at a time; data: family, number of the tag.
AirRequest inventoryRequest();

/// The number of the tag in the data of its answer to an inventory, sent least significant byte
/// first. Throws NfcFault (Damage).
TagUid uidOf(std::span<const std::uint8_t> inventoryData);

AirRequest readControlRequest();
AirRequest writeControlRequest(std::uint8_t control);

/// Puts a message of 1 to kPieceLength bytes into the mailbox.
AirRequest writeMessageRequest(std::span<const std::uint8_t> message);
AirRequest messageLengthRequest();

/// Fetches `count` bytes (1 to kMailboxSize) of the message from `offset` on. One byte at offset 0
/// can only be fetched of a message that has no more: the tag takes that for the whole message.
AirRequest readMessageRequest(std::size_t offset, std::size_t count);

}  // namespace tessara
