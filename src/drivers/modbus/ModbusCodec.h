#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/CommunicationObject.h"

namespace tessara {

/// A request to a unit on the line, and what a whole answer to it looks like. Knows no port.
/// The checksum is the link's business: the request is without one, a frame that arrives has its
/// own verified, and `dataOf` leaves it out.
class ModbusRequest {
 public:
  /// Function 04: `count` input registers (1 to 125) from `start` on.
  static ModbusRequest inputRegisters(std::uint8_t unit, std::uint16_t start, std::uint8_t count);
  /// Function 17: who are you.
  static ModbusRequest identification(std::uint8_t unit);

  /// Unit, function and arguments.
  [[nodiscard]] std::span<const std::uint8_t> bytes() const { return {bytes_.data(), length_}; }
  [[nodiscard]] std::uint8_t unit() const { return bytes_[0]; }

  /// The number of characters that a whole answer has at most, checksum included.
  [[nodiscard]] std::size_t longestAnswer() const;

  /// True if the first two bytes of `frame` are those of an answer to this request, whether it
  /// gives data or an exception code.
  [[nodiscard]] bool isAnsweredBy(std::span<const std::uint8_t> frame) const;

  /// The data bytes of the answer `frame`, a whole frame whose checksum holds. Throws ModbusFault
  /// if the frame is no answer to this request or an exception code.
  [[nodiscard]] std::span<const std::uint8_t> dataOf(std::span<const std::uint8_t> frame) const;

 private:
  [[nodiscard]] std::uint8_t function() const { return bytes_[1]; }

  std::array<std::uint8_t, 6> bytes_{};
  std::size_t length_ = 0;
  std::size_t dataLength_ = 0;  ///< of the answer; 0 if the answer alone knows
};

/// The request as a whole frame, checksum included.
std::vector<std::uint8_t> frameOf(const ModbusRequest& request);

/// True if `buffer` begins with a frame whose checksum holds, whoever sent it: an answer with a
/// byte count, as those of functions 04 and 17 are, or an exception.
bool holdsWholeFrame(std::span<const std::uint8_t> buffer);

/// The words in `data`, high byte first, as signed 16-bit numbers.
DeviceWords wordsOf(std::span<const std::uint8_t> data);

/// The four identification words in the data of an answer to function 17: they stand behind the
/// server id (one byte) and the run indicator (one byte); what follows them is left alone.
/// Throws ModbusFault if the data are too short for them.
DeviceWords identificationOf(std::span<const std::uint8_t> data);

}  // namespace tessara
