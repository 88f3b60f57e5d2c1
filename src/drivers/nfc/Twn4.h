#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "drivers/nfc/Iso15693.h"

/// Simple Protocol of TWN4 readers: lines of hexadecimal digits, one for a request and one for its
/// answer. The functions that make a request give its bytes, those that read an answer take its
/// bytes; lineOf and bytesOfHex lead from and to a line.
namespace tessara::twn4 {

/// What ends a line.
inline constexpr char kLineEnd = '\r';

/// Functions: group, number.
struct Function {
  std::uint8_t group;
  std::uint8_t number;

  bool operator==(const Function&) const = default;
};
inline constexpr Function kGetVersion{0x00, 0x04};
inline constexpr Function kSearchTag{0x05, 0x00};
inline constexpr Function kFieldOff{0x05, 0x01};
inline constexpr Function kSetTagTypes{0x05, 0x02};
inline constexpr Function kGetTagTypes{0x05, 0x03};
inline constexpr Function kIso15693Command{0x0D, 0x00};

/// The kind of tag that modules have, ISO 15693.
inline constexpr std::uint8_t kIso15693Tag = 0x82;

/// The line of a request or an answer, its end included.
std::string lineOf(std::span<const std::uint8_t> bytes);

Bytes versionRequest();
/// Lets searches look for ISO 15693 tags alone.
Bytes tagTypesRequest();
Bytes searchRequest();
Bytes fieldOffRequest();
/// Has the reader send an air request (encodeAirRequest) and give up to 255 bytes of the answer.
Bytes airRequest(std::span<const std::uint8_t> request);

/// What a function gives: the bytes behind the status byte. Throws NfcFault: ReaderRefusal with the
/// meaning of the status if the call failed, Damage if there is no status.
std::span<const std::uint8_t> resultsOf(std::span<const std::uint8_t> answer);

/// The text in the results of versionRequest: "TWN4/B1.06/CCF4.51/PRS1.04". Throws NfcFault
/// (Damage).
std::string versionOf(std::span<const std::uint8_t> results);

/// True if that version is a reader of this kind whose program contains Simple Protocol.
bool isSimpleProtocol(std::string_view version);

/// The tag in the results of searchRequest, or nothing if there is none. Throws NfcFault:
/// TagRefusal if it is of another kind than modules have, Damage if the results are none of a
/// search.
std::optional<TagUid> tagOf(std::span<const std::uint8_t> results);

/// The data of the tag's answer in the results of airRequest, without flags and checksum; nothing
/// if the reader says no more than that it failed. Throws NfcFault: TagRefusal if the error code of
/// the tag came along, Damage if the results are none of this function.
std::optional<Bytes> tagDataOf(std::span<const std::uint8_t> results);

}  // namespace tessara::twn4
