#pragma once

#include <algorithm>
#include <string>

#include "drivers/nfc/HexText.h"

namespace tessara::testing {

/// The bytes of a listing: "26 01 00".
inline Bytes hex(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
  return bytesOfHex(text);
}

/// The tag of the listings.
inline constexpr TagUid listedUid{0xE0, 0x02, 0x26, 0x44, 0x55, 0x66, 0x77, 0x88};

}  // namespace tessara::testing
