#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace tessara {

using Bytes = std::vector<std::uint8_t>;

/// Most bytes of a Modbus RTU frame, including address and checksum.
inline constexpr std::size_t maxModbusFrame = 256;

/// The functions that a module answers.
inline constexpr std::uint8_t readInputRegistersFunction = 0x04;
inline constexpr std::uint8_t reportServerIdFunction = 0x11;

/// The exception codes that a healthy module sends.
enum class ModbusException : std::uint8_t {
  IllegalFunction = 0x01,
  IllegalDataAddress = 0x02,
  IllegalDataValue = 0x03,
};

/// The request in a frame, without the checksum.
struct MasterRequest {
  std::uint8_t address = 0;  ///< 0 is the broadcast address
  std::uint8_t function = 0;
  Bytes data;
};

/// The checksum of Modbus RTU: reflected polynomial A001, start FFFF, no inversion.
/// "123456789" gives 4B37.
std::uint16_t modbusCrc(std::span<const std::uint8_t> bytes);

/// The bytes followed by their checksum, low byte first.
Bytes withModbusCrc(Bytes bytes);

/// A whole frame: address, function, data, checksum.
Bytes modbusFrame(std::uint8_t address, std::uint8_t function,
                  std::span<const std::uint8_t> data = {});

/// The frame by which a module refuses a request: function with bit 7 set, then the code.
Bytes modbusExceptionFrame(std::uint8_t address, std::uint8_t function, std::uint8_t code);

/// The request in a frame; nothing if the frame is too short, too long or its checksum is wrong.
std::optional<MasterRequest> decodeModbusRequest(std::span<const std::uint8_t> frame);

/// Assembles request frames from bytes that arrive in pieces.
///
/// The length of a request with function 04 or 17 is known, so that such a frame is complete with
/// its last byte. Any other frame ends with the silence after it, which its user notices.
class ModbusFrameAssembler {
 public:
  void append(std::span<const std::uint8_t> bytes);

  /// Removes and returns the first frame, if its length is known and its checksum right.
  std::optional<Bytes> takeComplete();

  /// Removes and returns all that has come since the last frame; after silence, that is the frame.
  Bytes takeAll();

  [[nodiscard]] bool empty() const { return received_.empty(); }

 private:
  Bytes received_;  // at most one byte above the limit, which shows that it is too long
};

}  // namespace tessara
