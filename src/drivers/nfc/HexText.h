#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "drivers/nfc/Iso15693.h"

namespace tessara {

/// The bytes as upper-case hexadecimal digits, two per byte, without separators.
std::string hexText(std::span<const std::uint8_t> bytes);

/// One byte as two digits.
std::string hexText(std::uint8_t byte);

/// The bytes that the digits of `text` stand for; upper and lower case are accepted. Throws
/// NfcFault (Damage) if it holds anything else, or half a byte.
Bytes bytesOfHex(std::string_view text);

}  // namespace tessara
