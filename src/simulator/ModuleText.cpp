#include "simulator/ModuleText.h"

#include <string>

#include "base/Text.h"
#include "simulator/SimulatedModule.h"

namespace tessara {

namespace {

constexpr char16_t maxCharacter = 0xFF;

std::uint8_t paddingByte(const JsonReader& root) {
  if (!root.has("namePadding")) return 0;
  const JsonReader node = root["namePadding"];
  if (node.text() == "zero") return 0;
  if (node.text() == "blank") return ' ';
  node.fail(node.shown() + R"( is not one of "zero" and "blank")");
}

}  // namespace

Bytes readLatin1(const JsonReader& node, std::size_t maxLength) {
  const std::u16string characters = fromUtf8(node.text());
  if (characters.size() > maxLength) {
    node.fail("has " + std::to_string(characters.size()) + " characters; a module has room for " +
              std::to_string(maxLength));
  }
  Bytes bytes;
  for (const char16_t character : characters) {
    if (character > maxCharacter) {
      node.fail("\"" + toUtf8({&character, 1}) + "\" is not a character of Latin-1");
    }
    bytes.push_back(static_cast<std::uint8_t>(character));
  }
  return bytes;
}

Bytes readPaddedName(const JsonReader& root) {
  Bytes name = readLatin1(root["name"], nameLength);
  name.resize(nameLength, paddingByte(root));
  return name;
}

}  // namespace tessara
