#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tessara {

using Bytes = std::vector<std::uint8_t>;

/// Longest Modbus RTU frame, address and checksum included.
inline constexpr std::size_t maxModbusFrame = 256;

/// The functions that a module answers.
inline constexpr std::uint8_t readInputRegistersFunction = 0x04;
inline constexpr std::uint8_t reportServerIdFunction = 0x11;

/// The exception codes that a healthy module gives.
enum class ModbusException : std::uint8_t {
  IllegalFunction = 0x01,
  IllegalDataAddress = 0x02,
  IllegalDataValue = 0x03,
};

/// A request as it stands in a frame, without the checksum.
struct MasterRequest {
  std::uint8_t address = 0;  ///< 0 is the broadcast address
  std::uint8_t function = 0;
  Bytes data;
};

/// The checksum of Modbus RTU: reflected polynomial A001, start FFFF, no inversion.
/// "123456789" gives 4B37.
std::uint16_t modbusCrc(std::span<const std::uint8_t> bytes);

/// The bytes with their checksum behind them, low byte first.
Bytes withModbusCrc(Bytes bytes);

/// A whole frame: address, function, data, checksum.
Bytes modbusFrame(std::uint8_t address, std::uint8_t function,
                  std::span<const std::uint8_t> data = {});

/// The frame by which a station refuses a request: function with bit 7 set, then the code.
Bytes modbusExceptionFrame(std::uint8_t address, std::uint8_t function, std::uint8_t code);

/// The request in a frame; nothing if the frame is too short, too long or its checksum is wrong.
std::optional<MasterRequest> decodeModbusRequest(std::span<const std::uint8_t> frame);

/// Puts together request frames from bytes that arrive in pieces.
///
/// The length of a request with function 04 or 17 is known, so that such a frame is complete with
/// its last byte. Any other frame ends with the silence behind it, of which the assembler is told
/// by whoever has a clock.
class ModbusFrameAssembler {
 public:
  void append(std::span<const std::uint8_t> bytes);

  /// The frame at the front, if its length is known and its checksum right. It is taken out.
  std::optional<Bytes> takeComplete();

  /// All that has come since the last frame: with the silence, that is the frame. It is taken out.
  Bytes takeAll();

  [[nodiscard]] bool empty() const { return received_.empty(); }

 private:
  Bytes received_;  // no longer than one byte above the limit, which is enough to see it broken
};

}  // namespace tessara
