#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "drivers/nfc/Iso15693.h"

namespace tessara {

/// Command codes of a tag with a mailbox, as far as readers and modules use them.
namespace tagCommand {
inline constexpr std::uint8_t inventory = 0x01;
inline constexpr std::uint8_t readBlock = 0x20;
inline constexpr std::uint8_t readConfiguration = 0xA0;
inline constexpr std::uint8_t writeConfiguration = 0xA1;
inline constexpr std::uint8_t writeMessage = 0xAA;
inline constexpr std::uint8_t readMessageLength = 0xAB;
inline constexpr std::uint8_t readMessage = 0xAC;
inline constexpr std::uint8_t readDynamic = 0xAD;
inline constexpr std::uint8_t writeDynamic = 0xAE;
inline constexpr std::uint8_t presentPassword = 0xB3;
}  // namespace tagCommand

/// Registers of the tag's mailbox. Both have the same pointer: one is a stored register, the other
/// a dynamic one that is lost with the field.
inline constexpr std::uint8_t mailboxMode = 0x0D;     ///< stored; bit 0 allows the mailbox
inline constexpr std::uint8_t mailboxControl = 0x0D;  ///< dynamic; bits in mailboxBits

/// Bits of the mailbox's control register.
namespace mailboxBits {
inline constexpr std::uint8_t enabled = 0x01;
inline constexpr std::uint8_t modulePut = 0x02;      ///< it holds a message of the module
inline constexpr std::uint8_t readerPut = 0x04;      ///< it holds a message of the reader
inline constexpr std::uint8_t currentModule = 0x40;  ///< the last message was the module's
inline constexpr std::uint8_t currentReader = 0x80;  ///< the last message was the reader's
}  // namespace mailboxBits

/// Bytes of a message that one request or answer carries on every reader: a report of the USB
/// reader has 61 bytes for a request, less flags, command, maker's code and length.
inline constexpr std::size_t maxPieceLength = 57;

/// Asks which tags are there. Answered by one tag at a time; data: family, number of the tag.
AirRequest inventoryRequest();

/// The number of the tag in the data of its answer to an inventory, sent least significant byte
/// first. Throws NfcFault (Damage).
TagUid uidOf(std::span<const std::uint8_t> inventoryData);

AirRequest readControlRequest();
AirRequest writeControlRequest(std::uint8_t control);

/// Puts a message of 1 to maxPieceLength bytes into the mailbox.
AirRequest writeMessageRequest(std::span<const std::uint8_t> message);
AirRequest messageLengthRequest();

/// Fetches `count` bytes (1 to 256, the capacity of the mailbox) of the message from `offset` on.
/// One byte at offset 0 can only be fetched of a message of one byte: the tag takes it for the
/// whole message.
AirRequest readMessageRequest(std::size_t offset, std::size_t count);

}  // namespace tessara
