#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/CommunicationObject.h"

namespace tessara {

/// Bytes of the checksum at the end of a frame.
inline constexpr std::size_t modbusChecksumLength = 2;

/// A request to a module on the line, and the form of a whole answer to it. Knows no port.
/// The checksum is left to the link: the request has none, an arriving frame has had its own
/// verified, and `dataOf` leaves it out.
class ModbusRequest {
 public:
  /// Function 04: `count` input registers (1 to 125) from `start` on.
  static ModbusRequest inputRegisters(std::uint8_t address, std::uint16_t start,
                                      std::uint8_t count);
  /// Function 17: the identification.
  static ModbusRequest identification(std::uint8_t address);

  /// Address, function and arguments.
  [[nodiscard]] std::span<const std::uint8_t> bytes() const { return {bytes_.data(), length_}; }
  [[nodiscard]] std::uint8_t address() const { return bytes_[0]; }

  /// The most characters that a whole answer can have, checksum included.
  [[nodiscard]] std::size_t maxAnswerLength() const;

  /// True if the first two bytes of `frame` are those of an answer to this request, whether it
  /// holds data or an exception code.
  [[nodiscard]] bool isAnsweredBy(std::span<const std::uint8_t> frame) const;

  /// The data bytes of the answer `frame`, a whole frame whose checksum is right. Throws
  /// ModbusFault if the frame does not answer this request, or holds an exception code.
  [[nodiscard]] std::span<const std::uint8_t> dataOf(std::span<const std::uint8_t> frame) const;

 private:
  [[nodiscard]] std::uint8_t function() const { return bytes_[1]; }

  std::array<std::uint8_t, 6> bytes_{};
  std::size_t length_ = 0;
  std::size_t dataLength_ = 0;  ///< of the answer; 0 if only the answer shows it
};

/// The request as a whole frame with its checksum.
std::vector<std::uint8_t> frameOf(const ModbusRequest& request);

/// True if `buffer` begins with a frame whose checksum is right, whoever sent it: an answer with a
/// byte count, as functions 04 and 17 have it, or an exception.
bool holdsWholeFrame(std::span<const std::uint8_t> buffer);

/// The words in `data`, high byte first, as signed 16-bit numbers.
DeviceWords wordsOf(std::span<const std::uint8_t> data);

/// The four identification words in the data of an answer to function 17, which follow the server
/// id (one byte) and the run indicator (one byte); the rest is ignored. Throws ModbusFault if the
/// data are too short for them.
DeviceWords identificationOf(std::span<const std::uint8_t> data);

}  // namespace tessara
