#include "simulator/nfc/NfcModuleFile.h"

#include <algorithm>

#include "drivers/nfc/HexText.h"
#include "drivers/nfc/NfcFault.h"
#include "simulator/ModuleFile.h"

namespace tessara {

namespace {

/// The first byte of the number of any ISO 15693 tag.
constexpr std::uint8_t firstUidByte = 0xE0;

TagUid readUid(const JsonReader& node) {
  TagUid uid{};
  Bytes bytes;
  try {
    bytes = bytesOfHex(node.text());
  } catch (const NfcFault&) {
    bytes.clear();
  }
  if (bytes.size() != uid.size() || bytes.front() != firstUidByte) {
    node.fail(node.shown() +
              " is not the number of a tag, 16 hexadecimal digits that begin with E0");
  }
  std::copy(bytes.begin(), bytes.end(), uid.begin());
  return uid;
}

}  // namespace

SimulatedNfcModule readNfcModule(const JsonReader& root) {
  SimulatedNfcModule module{readModule(root, {"uid", "readerFaults"})};
  if (root.has("uid")) module.uid = readUid(root["uid"]);
  if (root.has("readerFaults")) {
    for (const JsonReader& node : root["readerFaults"].elements()) {
      module.faults.push_back(readFieldFault(node));
    }
  }
  return module;
}

}  // namespace tessara
