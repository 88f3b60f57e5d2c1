#pragma once

#include <cstdint>

namespace tessara {

/// A whole number that keeps its sign and all digits of a 64-bit serial number.
__extension__ using WideDecimal = __int128;

/// Two 16-bit words as one number. A negative word counts as the unsigned word of the same bits;
/// a value above 65535 is used unchanged.
WideDecimal WordsToUnsigned32(std::int32_t high, std::int32_t low);

/// `high` times 2^32 plus `low`. A negative low part counts as the unsigned number of its low 32
/// bits; a negative high part stays negative.
WideDecimal Join32To64(WideDecimal high, WideDecimal low);

}  // namespace tessara
