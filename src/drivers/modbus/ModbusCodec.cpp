#include "drivers/modbus/ModbusCodec.h"

#include <algorithm>

#include "drivers/modbus/ModbusFault.h"

namespace tessara {

namespace {

constexpr std::uint8_t readInputRegistersFunction = 4;
constexpr std::uint8_t reportServerIdFunction = 17;
constexpr std::uint8_t exceptionBit = 0x80;

/// The exception codes by which a module asks for more time.
constexpr std::uint8_t acknowledge = 5;
constexpr std::uint8_t serverBusy = 6;

constexpr std::size_t headerLength = 3;  // address, function, byte count or exception code
constexpr std::size_t maxFrameLength = 256;

constexpr std::size_t identificationOffset = 2;  // server id, run indicator
constexpr std::size_t identificationLength = 8;

struct ExceptionName {
  std::uint8_t code;
  const char* name;
};

constexpr std::array exceptionNames{
    ExceptionName{1, "illegal function"},
    ExceptionName{2, "illegal data address"},
    ExceptionName{3, "illegal data value"},
    ExceptionName{4, "device failure"},
    ExceptionName{acknowledge, "acknowledged, needs more time"},
    ExceptionName{serverBusy, "busy"},
    ExceptionName{7, "negative acknowledge"},
    ExceptionName{8, "memory parity error"},
    ExceptionName{10, "gateway path unavailable"},
    ExceptionName{11, "gateway target did not respond"},
};

std::string exceptionText(std::uint8_t code) {
  const auto* const known = std::find_if(exceptionNames.begin(), exceptionNames.end(),
                                         [code](const auto& row) { return row.code == code; });
  return "exception " + std::to_string(code) + ": " +
         (known == exceptionNames.end() ? "unknown code" : known->name);
}

/// CRC of Modbus RTU: polynomial A001 reflected, start FFFF.
std::uint16_t checksum(std::span<const std::uint8_t> bytes) {
  unsigned int sum = 0xFFFF;
  for (const std::uint8_t byte : bytes) {
    sum ^= byte;
    for (int bit = 0; bit < 8; ++bit) {
      sum = (sum & 1U) != 0 ? (sum >> 1U) ^ 0xA001U : sum >> 1U;
    }
  }
  return static_cast<std::uint16_t>(sum);
}

}  // namespace

ModbusRequest ModbusRequest::inputRegisters(std::uint8_t address, std::uint16_t start,
                                            std::uint8_t count) {
  ModbusRequest request;
  request.bytes_ = {address,
                    readInputRegistersFunction,
                    static_cast<std::uint8_t>(start >> 8U),
                    static_cast<std::uint8_t>(start),
                    0,
                    count};
  request.length_ = 6;
  request.dataLength_ = std::size_t{2} * count;
  return request;
}

ModbusRequest ModbusRequest::identification(std::uint8_t address) {
  ModbusRequest request;
  request.bytes_ = {address, reportServerIdFunction};
  request.length_ = 2;
  return request;
}

std::size_t ModbusRequest::maxAnswerLength() const {
  return dataLength_ == 0 ? maxFrameLength : headerLength + dataLength_ + modbusChecksumLength;
}

bool ModbusRequest::isAnsweredBy(std::span<const std::uint8_t> frame) const {
  return frame.size() >= 2 && frame[0] == address() && (frame[1] & ~exceptionBit) == function();
}

std::span<const std::uint8_t> ModbusRequest::dataOf(std::span<const std::uint8_t> frame) const {
  if (frame.size() < headerLength + modbusChecksumLength) {
    throw ModbusFault(ModbusFaultKind::Damage, "the answer broke off");
  }
  if (frame[0] != address()) {
    throw ModbusFault(ModbusFaultKind::Foreign, "answer from address " + std::to_string(frame[0]));
  }
  if (!isAnsweredBy(frame)) {
    throw ModbusFault(ModbusFaultKind::Foreign,
                      "answer to function " + std::to_string(frame[1] & ~exceptionBit));
  }
  if ((frame[1] & exceptionBit) != 0) {
    const bool isBusy = frame[2] == acknowledge || frame[2] == serverBusy;
    throw ModbusFault(isBusy ? ModbusFaultKind::Busy : ModbusFaultKind::Refusal,
                      exceptionText(frame[2]));
  }
  const std::size_t length = frame[2];
  if (dataLength_ != 0 && length != dataLength_) {
    throw ModbusFault(ModbusFaultKind::Foreign, "answer with " + std::to_string(length) +
                                                    " data bytes instead of " +
                                                    std::to_string(dataLength_));
  }
  if (headerLength + length + modbusChecksumLength > frame.size()) {
    throw ModbusFault(ModbusFaultKind::Damage, "the answer broke off");
  }
  return frame.subspan(headerLength, length);
}

std::vector<std::uint8_t> frameOf(const ModbusRequest& request) {
  const auto contents = request.bytes();
  std::vector<std::uint8_t> frame(contents.begin(), contents.end());
  const std::uint16_t sum = checksum(contents);
  frame.push_back(static_cast<std::uint8_t>(sum));
  frame.push_back(static_cast<std::uint8_t>(sum >> 8U));
  return frame;
}

bool holdsWholeFrame(std::span<const std::uint8_t> buffer) {
  if (buffer.size() < headerLength + modbusChecksumLength) {
    return false;
  }
  const bool isException = (buffer[1] & exceptionBit) != 0;
  const std::size_t length = headerLength + (isException ? 0U : std::size_t{buffer[2]});
  if (length + modbusChecksumLength > buffer.size()) {
    return false;
  }
  const std::uint16_t sum = checksum(buffer.first(length));
  return buffer[length] == (sum & 0xFFU) && buffer[length + 1] == (sum >> 8U);
}

DeviceWords wordsOf(std::span<const std::uint8_t> data) {
  DeviceWords words;
  words.reserve(data.size() / 2);
  for (std::size_t i = 0; i + 1 < data.size(); i += 2) {
    words.push_back(static_cast<std::int16_t>((data[i] << 8U) | data[i + 1]));
  }
  return words;
}

DeviceWords identificationOf(std::span<const std::uint8_t> data) {
  constexpr std::size_t needed = identificationOffset + identificationLength;
  if (data.size() < needed) {
    throw ModbusFault(ModbusFaultKind::Contents, "answer too short, " +
                                                     std::to_string(data.size()) + " of at least " +
                                                     std::to_string(needed) + " data bytes");
  }
  return wordsOf(data.subspan(identificationOffset, identificationLength));
}

}  // namespace tessara
