#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "drivers/nfc/Iso15693.h"

/// Simple Protocol of TWN4 readers: lines of hexadecimal digits, one for a request and one for its
/// answer. The functions that make a request return its bytes, those that read an answer take its
/// bytes; lineOf and bytesOfHex convert from and to a line.
namespace tessara::twn4 {

/// The end of a line.
inline constexpr char lineEnd = '\r';

/// Functions: group, number.
struct Function {
  std::uint8_t group;
  std::uint8_t number;

  bool operator==(const Function&) const = default;
};
inline constexpr Function getVersion{0x00, 0x04};
inline constexpr Function searchTag{0x05, 0x00};
inline constexpr Function fieldOff{0x05, 0x01};
inline constexpr Function setTagTypes{0x05, 0x02};
inline constexpr Function getTagTypes{0x05, 0x03};
inline constexpr Function iso15693Command{0x0D, 0x00};

/// The kind of tag that modules have, ISO 15693.
inline constexpr std::uint8_t iso15693Tag = 0x82;

/// The line of a request or an answer, with its end.
std::string lineOf(std::span<const std::uint8_t> bytes);

Bytes versionRequest();
/// Restricts searches to ISO 15693 tags.
Bytes tagTypesRequest();
Bytes searchRequest();
Bytes fieldOffRequest();
/// Makes the reader send an air request (encodeAirRequest) and return up to 255 bytes of the
/// answer.
Bytes airRequest(std::span<const std::uint8_t> request);

/// The results of a function: the bytes after the status byte. Throws NfcFault: ReaderRefusal with
/// the meaning of the status if the call failed, Damage if there is no status.
std::span<const std::uint8_t> resultsOf(std::span<const std::uint8_t> answer);

/// The text in the results of versionRequest: "TWN4/B1.06/CCF4.51/PRS1.04". Throws NfcFault
/// (Damage).
std::string versionOf(std::span<const std::uint8_t> results);

/// True for the version of a TWN4 reader whose firmware contains Simple Protocol.
bool isSimpleProtocol(std::string_view version);

/// The tag in the results of searchRequest, or nothing if there is none. Throws NfcFault:
/// TagRefusal if it is of another kind than modules have, Damage if the results are not a search's.
std::optional<TagUid> tagOf(std::span<const std::uint8_t> results);

/// The data of the tag's answer in the results of airRequest, without flags and checksum; nothing
/// if the reader reports a failure without a cause. Throws NfcFault: TagRefusal if the results hold
/// the tag's error code, Damage if they are not this function's.
std::optional<Bytes> tagDataOf(std::span<const std::uint8_t> results);

}  // namespace tessara::twn4
