#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tessara {

using Bytes = std::vector<std::uint8_t>;

/// The number of a tag as people write it: most significant byte, E0, first.
using TagUid = std::array<std::uint8_t, 8>;

/// The flags of a request on air.
namespace airFlags {
inline constexpr std::uint8_t highDataRate = 0x02;
inline constexpr std::uint8_t inventory = 0x04;
inline constexpr std::uint8_t selected = 0x10;   ///< unless it is an inventory
inline constexpr std::uint8_t addressed = 0x20;  ///< unless it is an inventory
inline constexpr std::uint8_t oneSlot = 0x20;    ///< of an inventory
inline constexpr std::uint8_t option = 0x40;
}  // namespace airFlags

/// A request to an ISO 15693 tag, without the checksum that a reader adds.
struct AirRequest {
  std::uint8_t flags = airFlags::highDataRate;
  std::uint8_t command = 0;
  /// Sent only in a request whose flags say that it is addressed.
  TagUid uid{};
  Bytes data{};

  bool operator==(const AirRequest&) const = default;
};

/// True if the request is only for the tag with its number.
bool isAddressed(const AirRequest& request);

/// True for the commands added by the chip maker, A0 to DF. They carry the maker's code.
bool isCustomCommand(std::uint8_t command);

/// The bytes of the request: flags, command, maker's code of a custom command, number of the tag in
/// an addressed request (least significant byte first), data.
Bytes encodeAirRequest(const AirRequest& request);

/// The request in `bytes`. Throws NfcFault (Damage) if they do not hold one.
AirRequest decodeAirRequest(std::span<const std::uint8_t> bytes);

/// The answer of a tag, without the checksum.
struct AirAnswer {
  /// Bit 0: the tag refuses, and its one data byte is the error code.
  std::uint8_t flags = 0;
  Bytes data{};

  [[nodiscard]] bool isRefusal() const { return (flags & 0x01) != 0; }

  bool operator==(const AirAnswer&) const = default;
};

/// An answer by which a tag refuses with an error code.
AirAnswer airRefusal(std::uint8_t code);

/// The bytes of the answer: flags, data.
Bytes encodeAirAnswer(const AirAnswer& answer);

/// The answer in `bytes`. Throws NfcFault (Damage) if they are empty.
AirAnswer decodeAirAnswer(std::span<const std::uint8_t> bytes);

/// The data of an answer. Throws NfcFault (TagRefusal), with the meaning of its error code, if the
/// tag refused.
Bytes dataOf(const AirAnswer& answer);

/// The checksum on air: reflected polynomial 8408, start FFFF, inverted. "123456789" gives 906E.
std::uint16_t airChecksum(std::span<const std::uint8_t> bytes);

/// The bytes followed by their checksum, low byte first.
Bytes withAirChecksum(Bytes bytes);

/// The bytes before the checksum. Throws NfcFault (Damage) if it is wrong or missing.
std::span<const std::uint8_t> withoutAirChecksum(std::span<const std::uint8_t> bytes);

}  // namespace tessara
