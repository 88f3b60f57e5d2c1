#pragma once

#include "drivers/nfc/HexBytes.h"
#include "drivers/nfc/Iso15693.h"
#include "simulator/nfc/SimulatedField.h"

namespace tessara::testing {

/// A module with the tag of the listings: identification, version words, and 125 registers from
/// 1000 on that hold their own numbers.
inline SimulatedNfcModule nfcSample() {
  SimulatedNfcModule sample;
  sample.uid = listedUid;
  sample.module.identification = {49, 1, 15, 151};
  sample.module.registers = {{3, 0x1010}, {4, 0x2000}, {5, 0xFFFF}};
  for (std::uint16_t number = 1000; number < 1125; ++number) {
    sample.module.registers[number] = number;
  }
  return sample;
}

}  // namespace tessara::testing
