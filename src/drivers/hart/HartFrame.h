#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tessara {

using HartBytes = std::vector<std::uint8_t>;

/// The command byte that says: the number stands in the first two data bytes, high byte first.
inline constexpr std::uint8_t kHartExtendedCommand = 31;

/// The highest command number that fits the command byte. 254 and 255 are no commands.
inline constexpr std::uint16_t kHartLastShortCommand = 253;

/// The byte that comes in front of a frame again and again, so that a receiver can lock on.
inline constexpr std::uint8_t kHartPreamble = 0xFF;

/// Preambles that a receiver has to hear right before a frame to know that it is one.
inline constexpr std::size_t kHartLeastPreambles = 2;

/// Bytes of the longest frame without its preambles, expansion bytes included.
inline constexpr std::size_t kHartLongestFrame = 1 + 5 + 3 + 1 + 1 + 255 + 1;

/// Who sends a frame to whom; the value stands in the low three bits of the delimiter.
enum class HartFrameKind : std::uint8_t {
  Burst = 1,    ///< BACK: a station in burst mode, unasked
  Request = 2,  ///< STX: a master to a station
  Answer = 6,   ///< ACK: a station to a master
};

/// The address in a frame: a polling address in one byte, or the station's own in five. Beside the
/// station it tells which of the two masters the frame comes from or goes to, and whether the
/// station is in burst mode.
class HartAddress {
 public:
  static constexpr std::size_t kShortLength = 1;
  static constexpr std::size_t kLongLength = 5;
  static constexpr std::uint8_t kLastPollingAddress = 63;

  /// Polling address 0 without flags.
  HartAddress() = default;
  /// Polling address `station`, its low six bits, as the primary master uses it.
  static HartAddress polling(std::uint8_t station);
  /// The address of a station with this expanded device type (its top two bits are not sent) and
  /// this 24-bit id, as the primary master uses it. All zero is the address that calls everybody.
  static HartAddress unique(std::uint16_t deviceType, std::uint32_t deviceId);
  /// The address in a frame: one byte, or five.
  static HartAddress fromBytes(std::span<const std::uint8_t> bytes);

  [[nodiscard]] std::span<const std::uint8_t> bytes() const { return {bytes_.data(), length_}; }
  [[nodiscard]] bool isLong() const { return length_ == kLongLength; }
  [[nodiscard]] bool isOfPrimaryMaster() const { return (bytes_[0] & kPrimaryBit) != 0; }
  [[nodiscard]] bool isBursting() const { return (bytes_[0] & kBurstBit) != 0; }
  /// True for the long address whose 38 bits are all zero.
  [[nodiscard]] bool isBroadcast() const;
  /// The number 0 to 63 in a short address.
  [[nodiscard]] std::uint8_t pollingAddress() const { return bytes_[0] & kStationMask; }

  /// The same address with the flags set so.
  [[nodiscard]] HartAddress forMaster(bool isPrimary) const;
  [[nodiscard]] HartAddress withBurst(bool isBursting) const;

  /// True if both name the same station in the same way, whatever the flags.
  [[nodiscard]] bool isSameStation(const HartAddress& other) const;

  bool operator==(const HartAddress& other) const = default;

 private:
  static constexpr std::uint8_t kPrimaryBit = 0x80;
  static constexpr std::uint8_t kBurstBit = 0x40;
  static constexpr std::uint8_t kStationMask = 0x3F;

  [[nodiscard]] HartAddress withFlag(std::uint8_t flag, bool isSet) const;

  std::array<std::uint8_t, kLongLength> bytes_{};
  std::size_t length_ = kShortLength;
};

/// Who has the address, for people: "station A1 23 0A 0B 0C" or "polling address 5".
std::string hartStationText(const HartAddress& address);

/// One frame, without preambles and check byte, in the parts that stand on the line. Any frame on
/// the line can be held and is encoded again to the same bytes.
struct HartFrame {
  HartFrameKind kind = HartFrameKind::Request;
  bool isPsk = false;  ///< sent by a phase-shift modem; frequency shift otherwise
  HartAddress address{};
  HartBytes expansion{};  ///< 0 to 3 bytes; no use of them is known
  std::uint8_t command = 0;
  HartBytes data{};  ///< up to 255 bytes; in answers and bursts the first two are the status

  /// True for frames that a station sends: those carry a status.
  [[nodiscard]] bool isFromStation() const { return kind != HartFrameKind::Request; }

  /// The number of the command, that of an extended command included. An extended command without
  /// a number is command 31.
  [[nodiscard]] std::uint16_t commandNumber() const;

  /// What stands behind status and extended number.
  [[nodiscard]] std::span<const std::uint8_t> payload() const;

  bool operator==(const HartFrame& other) const = default;

 private:
  [[nodiscard]] std::size_t statusLength() const { return isFromStation() ? 2 : 0; }
  [[nodiscard]] bool hasExtendedNumber() const;
};

/// The frame by which a master sends command `number` to a station.
HartFrame hartRequest(const HartAddress& address, std::uint16_t number,
                      std::span<const std::uint8_t> payload = {});

/// The answer of the station that got `request`, with its two status bytes. The extended number, if
/// the request has one, stays.
HartFrame hartAnswer(const HartFrame& request, std::array<std::uint8_t, 2> status,
                     std::span<const std::uint8_t> payload = {});

/// The frame from delimiter to check byte. Throws std::length_error if it has too many expansion or
/// data bytes.
HartBytes encodeHart(const HartFrame& frame);

/// The same behind `preambles` preamble bytes: all that goes on the line.
HartBytes encodeHart(const HartFrame& frame, std::size_t preambles);

/// XOR of all bytes: 0 over a whole frame from delimiter to check byte.
std::uint8_t hartCheckByte(std::span<const std::uint8_t> bytes);

}  // namespace tessara
