#include "drivers/hart/HartParser.h"

#include <algorithm>

#include "drivers/hart/HartDelimiter.h"

namespace tessara {

namespace {

constexpr std::size_t statusBytes = 2;

/// Where the parts of a frame lie, counted from its delimiter.
struct Head {
  explicit Head(HartDelimiter delimiter)
      : expansion(1 + delimiter.addressLength()),
        command(expansion + delimiter.expansionLength()),
        byteCount(command + 1),
        data(byteCount + 1) {}

  std::size_t expansion;
  std::size_t command;
  std::size_t byteCount;
  std::size_t data;
};

}  // namespace

void HartParser::feed(std::span<const std::uint8_t> bytes) {
  buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
  if (!isOpen_) findBeginning();
}

std::optional<HartReception> HartParser::next() {
  while (isOpen_) {
    const auto length = frameLength();
    if (length && *length <= buffer_.size()) {
      HartReception found = reception(*length);
      drop(found.damage == HartDamage::None ? *length : 1);
      return found;
    }
    if (!isSilent_) return std::nullopt;
    drop(1);
    return HartReception{HartDamage::BrokenOff, {}};
  }
  isSilent_ = false;
  return std::nullopt;
}

void HartParser::reset() {
  buffer_.clear();
  isOpen_ = false;
  isSilent_ = false;
}

/// Drops what cannot belong to a frame, and everything before a delimiter.
void HartParser::findBeginning() {
  std::size_t preambles = 0;
  std::size_t place = 0;
  isOpen_ = false;
  for (; place < buffer_.size() && !isOpen_; ++place) {
    const std::uint8_t byte = buffer_[place];
    isOpen_ = preambles >= minHartPreambles && HartDelimiter::fromByte(byte).has_value();
    preambles = byte == hartPreamble ? preambles + 1 : 0;
  }
  const std::size_t kept = isOpen_ ? 1 : std::min(preambles, minHartPreambles);
  buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(place - kept));
}

/// The length of the open frame from delimiter to check byte; nothing before its byte count has
/// come.
std::optional<std::size_t> HartParser::frameLength() const {
  const Head head(*HartDelimiter::fromByte(buffer_[0]));
  if (head.byteCount >= buffer_.size()) return std::nullopt;
  return head.data + buffer_[head.byteCount] + 1;
}

HartReception HartParser::reception(std::size_t length) const {
  const std::span<const std::uint8_t> bytes = std::span(buffer_).first(length);
  const HartDelimiter delimiter = *HartDelimiter::fromByte(bytes[0]);
  const Head head(delimiter);
  const auto part = [&bytes](std::size_t from, std::size_t to) {
    return HartBytes(bytes.begin() + static_cast<std::ptrdiff_t>(from),
                     bytes.begin() + static_cast<std::ptrdiff_t>(to));
  };
  HartReception found;
  found.frame.kind = delimiter.kind();
  found.frame.isPsk = delimiter.isPsk();
  found.frame.address = HartAddress::fromBytes(bytes.subspan(1, delimiter.addressLength()));
  found.frame.expansion = part(head.expansion, head.command);
  found.frame.command = bytes[head.command];
  found.frame.data = part(head.data, length - 1);
  if (hartCheckByte(bytes) != 0) {
    found.damage = HartDamage::CheckByte;
  } else if (found.frame.isFromModule() && found.frame.data.size() < statusBytes) {
    found.damage = HartDamage::ByteCount;
  }
  return found;
}

/// Drops the first bytes of the open frame and looks for another in the rest.
void HartParser::drop(std::size_t count) {
  buffer_.erase(buffer_.begin(), buffer_.begin() + static_cast<std::ptrdiff_t>(count));
  findBeginning();
}

}  // namespace tessara
