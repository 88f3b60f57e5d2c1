#include "drivers/nfc/HexText.h"

#include "drivers/nfc/NfcFault.h"

namespace tessara {

namespace {

constexpr std::string_view hexDigits = "0123456789ABCDEF0123456789abcdef";

std::uint8_t valueOf(char digit) {
  const auto place = hexDigits.find(digit);
  if (place == std::string_view::npos) {
    throw NfcFault(NfcFaultKind::Damage,
                   "the line contains characters other than hexadecimal digits");
  }
  return static_cast<std::uint8_t>(place % 16);
}

}  // namespace

std::string hexText(std::span<const std::uint8_t> bytes) {
  std::string text;
  text.reserve(2 * bytes.size());
  for (const std::uint8_t byte : bytes) {
    text += hexDigits[byte >> 4U];
    text += hexDigits[byte & 0x0FU];
  }
  return text;
}

std::string hexText(std::uint8_t byte) {
  return hexText({&byte, 1});
}

Bytes bytesOfHex(std::string_view text) {
  if (text.size() % 2 != 0) {
    throw NfcFault(NfcFaultKind::Damage, "the line ends with half a byte");
  }
  Bytes bytes;
  bytes.reserve(text.size() / 2);
  for (std::size_t place = 0; place < text.size(); place += 2) {
    bytes.push_back(
        static_cast<std::uint8_t>(valueOf(text[place]) << 4U | valueOf(text[place + 1])));
  }
  return bytes;
}

}  // namespace tessara
