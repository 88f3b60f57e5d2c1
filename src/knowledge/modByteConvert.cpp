#include "knowledge/modByteConvert.h"

namespace tessara {
namespace {

/// A negative number of `bits` bits read as unsigned.
WideDecimal withoutSign(WideDecimal value, int bits) {
  const WideDecimal signBit = WideDecimal{1} << (bits - 1);
  return value < 0 ? (value & (signBit - 1)) + signBit : value;
}

}  // namespace

WideDecimal WordsToUnsigned32(std::int32_t high, std::int32_t low) {
  return withoutSign(high, 16) * 65536 + withoutSign(low, 16);
}

WideDecimal Join32To64(WideDecimal high, WideDecimal low) {
  return high * 4294967296 + withoutSign(low, 32);
}

}  // namespace tessara
