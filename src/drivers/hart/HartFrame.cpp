#include "drivers/hart/HartFrame.h"

#include <algorithm>
#include <stdexcept>

#include "drivers/hart/HartDelimiter.h"

namespace tessara {

namespace {

constexpr std::size_t numberLength = 2;
constexpr std::size_t maxData = 255;

void append(HartBytes& bytes, std::span<const std::uint8_t> more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

void appendNumber(HartBytes& bytes, std::uint16_t number) {
  bytes.push_back(static_cast<std::uint8_t>(number >> 8U));
  bytes.push_back(static_cast<std::uint8_t>(number & 0xFFU));
}

}  // namespace

HartAddress HartAddress::polling(std::uint8_t number) {
  HartAddress address;
  address.bytes_[0] = static_cast<std::uint8_t>(primaryBit | (number & addressMask));
  return address;
}

HartAddress HartAddress::unique(std::uint16_t deviceType, std::uint32_t deviceId) {
  HartAddress address;
  address.length_ = longLength;
  address.bytes_ = {static_cast<std::uint8_t>(primaryBit | ((deviceType >> 8U) & addressMask)),
                    static_cast<std::uint8_t>(deviceType & 0xFFU),
                    static_cast<std::uint8_t>((deviceId >> 16U) & 0xFFU),
                    static_cast<std::uint8_t>((deviceId >> 8U) & 0xFFU),
                    static_cast<std::uint8_t>(deviceId & 0xFFU)};
  return address;
}

HartAddress HartAddress::fromBytes(std::span<const std::uint8_t> bytes) {
  HartAddress address;
  address.length_ = bytes.size() < longLength ? shortLength : longLength;
  std::copy_n(bytes.begin(), std::min(address.length_, bytes.size()), address.bytes_.begin());
  return address;
}

bool HartAddress::isBroadcast() const {
  return isLong() && isSameAddress(unique(0, 0));
}

HartAddress HartAddress::forMaster(bool isPrimary) const {
  return withFlag(primaryBit, isPrimary);
}

HartAddress HartAddress::withBurst(bool isBursting) const {
  return withFlag(burstBit, isBursting);
}

HartAddress HartAddress::withFlag(std::uint8_t flag, bool isSet) const {
  HartAddress changed = *this;
  const unsigned int others = changed.bytes_[0] & ~static_cast<unsigned int>(flag);
  changed.bytes_[0] = static_cast<std::uint8_t>(others | (isSet ? flag : 0U));
  return changed;
}

bool HartAddress::isSameAddress(const HartAddress& other) const {
  return forMaster(false).withBurst(false) == other.forMaster(false).withBurst(false);
}

std::string hartAddressText(const HartAddress& address) {
  if (!address.isLong()) return "polling address " + std::to_string(address.pollingAddress());
  constexpr const char* hexDigits = "0123456789ABCDEF";
  std::string text = "address";
  for (const std::uint8_t byte : address.bytes()) {
    text += ' ';
    text += hexDigits[byte >> 4U];
    text += hexDigits[byte & 0xFU];
  }
  return text;
}

bool HartFrame::hasExtendedNumber() const {
  return command == extendedHartCommand && data.size() >= statusLength() + numberLength;
}

std::uint16_t HartFrame::commandNumber() const {
  if (!hasExtendedNumber()) return command;
  const std::size_t place = statusLength();
  return static_cast<std::uint16_t>((data[place] << 8U) | data[place + 1]);
}

std::span<const std::uint8_t> HartFrame::payload() const {
  const std::size_t begin = statusLength() + (hasExtendedNumber() ? numberLength : 0);
  return std::span(data).subspan(std::min(begin, data.size()));
}

HartFrame hartRequest(const HartAddress& address, std::uint16_t number,
                      std::span<const std::uint8_t> payload) {
  HartFrame frame;
  frame.address = address;
  if (number > maxShortHartCommand) {
    frame.command = extendedHartCommand;
    appendNumber(frame.data, number);
  } else {
    frame.command = static_cast<std::uint8_t>(number);
  }
  append(frame.data, payload);
  return frame;
}

HartFrame hartAnswer(const HartFrame& request, std::array<std::uint8_t, 2> status,
                     std::span<const std::uint8_t> payload) {
  HartFrame frame;
  frame.kind = HartFrameKind::Answer;
  frame.isPsk = request.isPsk;
  frame.address = request.address;
  frame.command = request.command;
  append(frame.data, status);
  const std::size_t extendedLength = request.data.size() - request.payload().size();
  append(frame.data, std::span(request.data).first(extendedLength));
  append(frame.data, payload);
  return frame;
}

HartBytes encodeHart(const HartFrame& frame) {
  if (frame.expansion.size() > maxHartExpansion || frame.data.size() > maxData) {
    throw std::length_error("a frame has up to 3 expansion bytes and 255 data bytes");
  }
  HartBytes bytes{HartDelimiter::of(frame).byte()};
  append(bytes, frame.address.bytes());
  append(bytes, frame.expansion);
  bytes.push_back(frame.command);
  bytes.push_back(static_cast<std::uint8_t>(frame.data.size()));
  append(bytes, frame.data);
  bytes.push_back(hartCheckByte(bytes));
  return bytes;
}

HartBytes encodeHart(const HartFrame& frame, std::size_t preambles) {
  HartBytes bytes(preambles, hartPreamble);
  append(bytes, encodeHart(frame));
  return bytes;
}

std::uint8_t hartCheckByte(std::span<const std::uint8_t> bytes) {
  std::uint8_t check = 0;
  for (const std::uint8_t byte : bytes) check ^= byte;
  return check;
}

}  // namespace tessara
