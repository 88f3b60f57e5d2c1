#include "simulator/ModbusCodec.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tessara {

namespace {

constexpr std::size_t crcLength = 2;
constexpr std::size_t minFrameLength = 4;
constexpr std::uint8_t exceptionBit = 0x80;

using CrcTable = std::array<std::uint16_t, 256>;

constexpr CrcTable makeCrcTable() {
  CrcTable table{};
  for (std::size_t byte = 0; byte < table.size(); ++byte) {
    auto crc = static_cast<std::uint16_t>(byte);
    for (int bit = 0; bit < 8; ++bit) {
      const bool carry = (crc & 1) != 0;
      crc = static_cast<std::uint16_t>(crc >> 1);
      if (carry) crc ^= 0xA001;
    }
    table[byte] = crc;
  }
  return table;
}

constexpr CrcTable crcTable = makeCrcTable();

/// Length of a request frame with that function; nothing if only silence ends it.
std::optional<std::size_t> requestLength(std::uint8_t function) {
  switch (function) {
    case readInputRegistersFunction:
      return 8;
    case reportServerIdFunction:
      return 4;
    default:
      return std::nullopt;
  }
}

/// A frame is right if the checksum over all of it, its own included, is zero.
bool checksumIsRight(std::span<const std::uint8_t> frame) {
  return modbusCrc(frame) == 0;
}

}  // namespace

std::uint16_t modbusCrc(std::span<const std::uint8_t> bytes) {
  std::uint16_t crc = 0xFFFF;
  for (const std::uint8_t byte : bytes) {
    crc = static_cast<std::uint16_t>((crc >> 8) ^ crcTable[(crc ^ byte) & 0xFFU]);
  }
  return crc;
}

Bytes withModbusCrc(Bytes bytes) {
  const std::uint16_t crc = modbusCrc(bytes);
  bytes.push_back(static_cast<std::uint8_t>(crc & 0xFF));
  bytes.push_back(static_cast<std::uint8_t>(crc >> 8));
  return bytes;
}

Bytes modbusFrame(std::uint8_t address, std::uint8_t function, std::span<const std::uint8_t> data) {
  Bytes bytes{address, function};
  bytes.insert(bytes.end(), data.begin(), data.end());
  return withModbusCrc(std::move(bytes));
}

Bytes modbusExceptionFrame(std::uint8_t address, std::uint8_t function, std::uint8_t code) {
  return withModbusCrc({address, static_cast<std::uint8_t>(function | exceptionBit), code});
}

std::optional<MasterRequest> decodeModbusRequest(std::span<const std::uint8_t> frame) {
  if (frame.size() < minFrameLength || frame.size() > maxModbusFrame || !checksumIsRight(frame)) {
    return std::nullopt;
  }
  const auto data = frame.subspan(2, frame.size() - 2 - crcLength);
  return MasterRequest{frame[0], frame[1], Bytes(data.begin(), data.end())};
}

void ModbusFrameAssembler::append(std::span<const std::uint8_t> bytes) {
  const auto taken = bytes.first(std::min(bytes.size(), maxModbusFrame + 1 - received_.size()));
  received_.insert(received_.end(), taken.begin(), taken.end());
}

std::optional<Bytes> ModbusFrameAssembler::takeComplete() {
  if (received_.size() < minFrameLength) return std::nullopt;
  const auto length = requestLength(received_[1]);
  if (!length || received_.size() < *length ||
      !checksumIsRight(std::span(received_).first(*length))) {
    return std::nullopt;
  }
  const auto end = received_.begin() + static_cast<std::ptrdiff_t>(*length);
  Bytes frame(received_.begin(), end);
  received_.erase(received_.begin(), end);
  return frame;
}

Bytes ModbusFrameAssembler::takeAll() {
  return std::exchange(received_, {});
}

}  // namespace tessara
