#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tessara {

/// What an answer means to the master.
enum class HartOutcome {
  Success,
  Warning,             ///< the answer holds data, with a caution
  Error,               ///< no data; asking again gives the same
  Busy,                ///< no data; the module has other things to do
  Delayed,             ///< no data yet; ask again with the identical request
  CommunicationError,  ///< the module received the request badly
};

/// The response codes that this system sends or looks for.
namespace hart {
inline constexpr std::uint8_t success = 0;
inline constexpr std::uint8_t tooFewData = 5;
inline constexpr std::uint8_t busy = 32;
inline constexpr std::uint8_t delayStarted = 33;
inline constexpr std::uint8_t delayRunning = 34;
inline constexpr std::uint8_t notImplemented = 64;

/// Communication error: bit 7 and the bit of the check byte.
inline constexpr std::uint8_t communicationError = 0x80;
inline constexpr std::uint8_t checkByteError = 0x08;

inline constexpr std::uint8_t moreStatus = 0x10;  ///< device status: command 48 has news
inline constexpr std::uint8_t coldStart = 0x20;   ///< device status: the first answer since a start
}  // namespace hart

/// One bit of the device status, the second status byte of an answer.
struct HartDeviceStatusBit {
  std::uint8_t value;
  std::string_view name;  ///< "cold start"
};

/// All eight, from the highest bit down.
std::span<const HartDeviceStatusBit, 8> hartDeviceStatusBits();

/// The two status bytes at the head of every answer.
class HartStatus {
 public:
  explicit HartStatus(std::array<std::uint8_t, 2> bytes) : bytes_(bytes) {}

  [[nodiscard]] HartOutcome outcome() const;

  /// The first byte in words: "response code 7: write protected", or "communication error 88:
  /// check byte".
  [[nodiscard]] std::string text() const;

 private:
  [[nodiscard]] bool isCommunicationError() const {
    return (bytes_[0] & hart::communicationError) != 0;
  }

  std::array<std::uint8_t, 2> bytes_;
};

}  // namespace tessara
