#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tessara {

using HartBytes = std::vector<std::uint8_t>;

/// The command byte that announces a number in the first two data bytes, high byte first.
inline constexpr std::uint8_t extendedHartCommand = 31;

/// The highest command number in the command byte. 254 and 255 are not commands.
inline constexpr std::uint16_t maxShortHartCommand = 253;

/// The byte that is repeated before a frame so that a receiver can lock on.
inline constexpr std::uint8_t hartPreamble = 0xFF;

/// Fewest preambles right before a delimiter by which a receiver recognises a frame.
inline constexpr std::size_t minHartPreambles = 2;

/// Most preambles that a device needs or sends.
inline constexpr std::size_t maxHartPreambles = 40;

/// Bytes of the longest frame without its preambles, including expansion bytes.
inline constexpr std::size_t maxHartFrame = 1 + 5 + 3 + 1 + 1 + 255 + 1;

/// Who sends a frame to whom: the low three bits of the delimiter.
enum class HartFrameKind : std::uint8_t {
  Burst = 1,    ///< BACK: a module in burst mode, unasked
  Request = 2,  ///< STX: a master to a module
  Answer = 6,   ///< ACK: a module to a master
};

/// The address in a frame: a polling address in one byte, or the module's unique address in five.
/// It also holds which of the two masters the frame comes from or goes to, and whether the module
/// is in burst mode.
class HartAddress {
 public:
  static constexpr std::size_t shortLength = 1;
  static constexpr std::size_t longLength = 5;
  static constexpr std::uint8_t maxPollingAddress = 63;

  /// Polling address 0 without flags.
  HartAddress() = default;
  /// Polling address `number`, its low six bits, as the primary master uses it.
  static HartAddress polling(std::uint8_t number);
  /// The address of a module with this expanded device type (its top two bits are not sent) and
  /// this 24-bit id, as the primary master uses it. All zero is the broadcast address.
  static HartAddress unique(std::uint16_t deviceType, std::uint32_t deviceId);
  /// The address in a frame: one byte, or five.
  static HartAddress fromBytes(std::span<const std::uint8_t> bytes);

  [[nodiscard]] std::span<const std::uint8_t> bytes() const { return {bytes_.data(), length_}; }
  [[nodiscard]] bool isLong() const { return length_ == longLength; }
  [[nodiscard]] bool isOfPrimaryMaster() const { return (bytes_[0] & primaryBit) != 0; }
  [[nodiscard]] bool isBursting() const { return (bytes_[0] & burstBit) != 0; }
  /// True for the long address whose 38 bits are all zero.
  [[nodiscard]] bool isBroadcast() const;
  /// The number 0 to 63 in a short address.
  [[nodiscard]] std::uint8_t pollingAddress() const { return bytes_[0] & addressMask; }

  /// The same address with the flags set so.
  [[nodiscard]] HartAddress forMaster(bool isPrimary) const;
  [[nodiscard]] HartAddress withBurst(bool isBursting) const;

  /// True if both are the same address, whatever the flags.
  [[nodiscard]] bool isSameAddress(const HartAddress& other) const;

  bool operator==(const HartAddress& other) const = default;

 private:
  static constexpr std::uint8_t primaryBit = 0x80;
  static constexpr std::uint8_t burstBit = 0x40;
  static constexpr std::uint8_t addressMask = 0x3F;

  [[nodiscard]] HartAddress withFlag(std::uint8_t flag, bool isSet) const;

  std::array<std::uint8_t, longLength> bytes_{};
  std::size_t length_ = shortLength;
};

/// The address for people: "address A1 23 0A 0B 0C" or "polling address 5".
std::string hartAddressText(const HartAddress& address);

/// One frame, without preambles and check byte, split into its parts. Any frame can be held, and is
/// encoded to the same bytes again.
struct HartFrame {
  HartFrameKind kind = HartFrameKind::Request;
  bool isPsk = false;  ///< sent by a phase-shift modem; frequency shift otherwise
  HartAddress address{};
  HartBytes expansion{};  ///< 0 to 3 bytes; no use of them is known
  std::uint8_t command = 0;
  HartBytes data{};  ///< up to 255 bytes; in answers and bursts the first two are the status

  /// True for frames that a module sends: those carry a status.
  [[nodiscard]] bool isFromModule() const { return kind != HartFrameKind::Request; }

  /// The number of the command, extended ones included. An extended command without a number is
  /// command 31.
  [[nodiscard]] std::uint16_t commandNumber() const;

  /// What follows the status and the extended number.
  [[nodiscard]] std::span<const std::uint8_t> payload() const;

  bool operator==(const HartFrame& other) const = default;

 private:
  [[nodiscard]] std::size_t statusLength() const { return isFromModule() ? 2 : 0; }
  [[nodiscard]] bool hasExtendedNumber() const;
};

/// The frame by which a master sends command `number` to a module.
HartFrame hartRequest(const HartAddress& address, std::uint16_t number,
                      std::span<const std::uint8_t> payload = {});

/// The answer of the module that got `request`, with its two status bytes. It keeps the extended
/// number, if the request has one.
HartFrame hartAnswer(const HartFrame& request, std::array<std::uint8_t, 2> status,
                     std::span<const std::uint8_t> payload = {});

/// The frame from delimiter to check byte. Throws std::length_error if it has too many expansion or
/// data bytes.
HartBytes encodeHart(const HartFrame& frame);

/// The same after `preambles` preamble bytes: all that goes on the line.
HartBytes encodeHart(const HartFrame& frame, std::size_t preambles);

/// XOR of all bytes: 0 over a whole frame from delimiter to check byte.
std::uint8_t hartCheckByte(std::span<const std::uint8_t> bytes);

}  // namespace tessara
