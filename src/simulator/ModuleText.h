#pragma once

#include <cstddef>

#include "json/JsonReader.h"
#include "simulator/ModbusCodec.h"

namespace tessara {

/// The text of `node` as a module keeps it: Latin-1, one byte a character. Throws JsonError
/// if it has more than `most` characters or one that is not in Latin-1.
Bytes readLatin1(const JsonReader& node, std::size_t maxLength);

/// The name in the key "name" of a module file, padded to nameLength as "namePadding"
/// says: with zero bytes or blanks. Throws JsonError.
Bytes readPaddedName(const JsonReader& root);

}  // namespace tessara
