#pragma once

#include <string>
#include <vector>

#include "drivers/hart/HartFrame.h"
#include "drivers/hart/HartParser.h"

namespace tessara::testing {

/// The bytes of "06 80 FE".
inline HartBytes bytesOf(const std::string& hex) {
  HartBytes bytes;
  for (std::size_t place = 0; place + 1 < hex.size(); place += 3) {
    bytes.push_back(static_cast<std::uint8_t>(std::stoul(hex.substr(place, 2), nullptr, 16)));
  }
  return bytes;
}

inline HartBytes joined(const std::vector<HartBytes>& parts) {
  HartBytes all;
  for (const HartBytes& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

/// The same after that many preambles.
inline HartBytes afterPreambles(const HartBytes& frame, std::size_t preambles = 5) {
  return joined({HartBytes(preambles, 0xFF), frame});
}

/// Everything that the parser returns now.
inline std::vector<HartReception> receptions(HartParser& parser) {
  std::vector<HartReception> all;
  while (auto reception = parser.next()) all.push_back(std::move(*reception));
  return all;
}

/// All that a fresh parser finds in these bytes.
inline std::vector<HartReception> receptionsOf(const HartBytes& bytes) {
  HartParser parser;
  parser.feed(bytes);
  return receptions(parser);
}

/// The addresses of the worked examples: expanded type E123, id 0A0B0C.
inline HartAddress exampleAddress() {
  return HartAddress::unique(0xE123, 0x0A0B0C);
}

/// Identity of a HART 7 module of manufacturer B0, type E2, device revision 1, id 0A0B0C.
inline HartBytes exampleIdentity(std::uint8_t preambles = 5) {
  return {0xFE, 0xB0, 0xE2, preambles, 7, 1, 3,    0x60, 1,    0x0A, 0x0B,
          0x0C, 5,    4,    1,         2, 0, 0x60, 0xC1, 0x60, 0xC1, 1};
}

/// The unique address of the module of exampleIdentity().
inline HartAddress identifiedAddress() {
  return HartAddress::unique(0xB0E2, 0x0A0B0C);
}

}  // namespace tessara::testing
