#pragma once

#include <cstddef>

#include "simulator/JsonNode.h"
#include "simulator/ModbusCodec.h"

namespace tessara {

/// The text of `node` as a module keeps it: Latin-1, one byte a character. Throws ModuleFileError
/// if it has more than `most` characters or one that Latin-1 has not.
Bytes readLatin1(const JsonNode& node, std::size_t most);

/// The name in the key "name" of a module file, padded to nameLength with what "namePadding"
/// says: zero bytes or blanks. Throws ModuleFileError.
Bytes readPaddedName(const JsonNode& root);

}  // namespace tessara
