#include "simulator/hart/HartModuleFile.h"

#include <algorithm>
#include <limits>

#include "base/Text.h"
#include "drivers/hart/HartFrame.h"
#include "drivers/hart/HartStatus.h"
#include "simulator/FaultKinds.h"
#include "simulator/ModuleNumber.h"
#include "simulator/ModuleText.h"
#include "simulator/hart/HartFaultFile.h"

namespace tessara {

namespace {

constexpr std::size_t maxData = 253;  // of an answer, beside its status
constexpr std::size_t tagCharacters = 8;
constexpr std::uint64_t maxId = 0xFFFFFF;
constexpr std::uint8_t identityMark = 254;
constexpr std::uint8_t minUniversalRevision = 5;
constexpr std::uint8_t maxUniversalRevision = 7;

/// Bytes of the identity in each universal revision, from the first.
constexpr std::array<std::size_t, 3> identityLengths{12, 17, 22};

class HartModuleReader {
 public:
  explicit HartModuleReader(const JsonReader& root) : root_(root) {}

  SimulatedHartModule read() {
    root_.allowOnly({"link",
                     "pollingAddress",
                     "vendorId",
                     "universalRevision",
                     "deviceType",
                     "deviceRevision",
                     "softwareRevision",
                     "hardwareRevision",
                     "uniqueId",
                     "requestPreambles",
                     "answerPreambles",
                     "identity",
                     "tag",
                     "name",
                     "namePadding",
                     "firmware",
                     "serialNumber",
                     "status",
                     "deviceStatus",
                     "commands",
                     "faults"});
    module_.pollingAddress = byte("pollingAddress", 0, HartAddress::maxPollingAddress);
    module_.preambles = count("answerPreambles", defaultHartPreambles, maxHartPreambles);
    module_.identity = root_.has("identity") ? givenIdentity() : builtIdentity();
    readTag();
    readName();
    readText("firmware", hart::readFirmware);
    readText("serialNumber", hart::readSerialNumber);
    if (root_.has("status")) answer(hart::readStatus, root_["status"]);
    readDeviceStatus();
    readCommands();
    readFaults();
    return std::move(module_);
  }

 private:
  [[nodiscard]] std::uint64_t count(const std::string& key, std::uint64_t otherwise,
                                    std::uint64_t highest) const {
    return root_.has(key) ? root_[key].number(0, highest) : otherwise;
  }

  [[nodiscard]] std::uint8_t byte(const std::string& key, std::uint8_t otherwise,
                                  std::uint64_t highest = 0xFF) const {
    return static_cast<std::uint8_t>(count(key, otherwise, highest));
  }

  [[nodiscard]] Bytes givenIdentity() const {
    const JsonReader node = root_["identity"];
    for (const std::string key :
         {"vendorId", "universalRevision", "deviceType", "deviceRevision", "softwareRevision",
          "hardwareRevision", "uniqueId", "requestPreambles"}) {
      if (root_.has(key)) root_[key].fail("is part of the identity, which is given as bytes");
    }
    Bytes bytes = readBytes(node);
    if (bytes.size() < identityLengths.front() || bytes.size() > maxData) {
      node.fail("does not have 12 to 253 bytes");
    }
    if (bytes.front() != identityMark) node.fail("does not begin with 254");
    return bytes;
  }

  [[nodiscard]] Bytes builtIdentity() const {
    const auto vendor = static_cast<std::uint8_t>(root_["vendorId"].number(0, 0xFF));
    const auto revision =
        root_.has("universalRevision")
            ? root_["universalRevision"].number(minUniversalRevision, maxUniversalRevision)
            : maxUniversalRevision;
    const auto type = static_cast<std::uint8_t>(root_["deviceType"].number(0, 0xFF));
    const auto id = root_["uniqueId"].number(0, maxId);
    Bytes bytes{identityMark,
                vendor,
                type,
                byte("requestPreambles", defaultHartPreambles, maxHartPreambles),
                static_cast<std::uint8_t>(revision),
                static_cast<std::uint8_t>(root_["deviceRevision"].number(0, 0xFF)),
                byte("softwareRevision", 1),
                byte("hardwareRevision", 0),
                0,  // flags
                static_cast<std::uint8_t>(id >> 16),
                static_cast<std::uint8_t>(id >> 8),
                static_cast<std::uint8_t>(id),
                static_cast<std::uint8_t>(module_.preambles),
                3,  // number of the last device variable
                0,
                1,  // configuration changes
                0,  // extended device status
                0,
                vendor,
                0,
                vendor,  // manufacturer, distributor
                1};      // profile: process automation
    bytes.resize(identityLengths.at(revision - minUniversalRevision));
    return bytes;
  }

  void readTag() {
    if (!root_.has("tag")) return;
    readLatin1(root_["tag"], tagCharacters);
    std::string tag = root_["tag"].text();
    tag.resize(tagCharacters, ' ');
    std::ranges::copy(packedHartText(tag), module_.tag.begin());
  }

  void readName() {
    if (!root_.has("name")) {
      if (root_.has("namePadding")) root_["namePadding"].fail("there is no name to pad");
      return;
    }
    module_.name = root_["name"].text();
    module_.answers[hart::readName] = readPaddedName(root_);
  }

  void readText(const std::string& key, std::uint16_t command) {
    if (root_.has(key)) module_.answers[command] = readLatin1(root_[key], maxData);
  }

  /// A list of bytes, or a text in Latin-1.
  void answer(std::uint16_t command, const JsonReader& node) {
    Bytes data = node.isText() ? readLatin1(node, maxData) : readBytes(node);
    const std::size_t room = command > maxShortHartCommand ? maxData - 2 : maxData;
    if (data.size() > room) {
      node.fail("has " + std::to_string(data.size()) + " bytes; an answer has room for " +
                std::to_string(room));
    }
    if (!module_.answers.emplace(command, std::move(data)).second) {
      node.fail("command " + std::to_string(command) + " is given twice");
    }
  }

  void readDeviceStatus() {
    if (!root_.has("deviceStatus")) return;
    for (const JsonReader& node : root_["deviceStatus"].elements()) {
      const auto bits = hartDeviceStatusBits();
      const auto bit = std::ranges::find(bits, node.text(), &HartDeviceStatusBit::name);
      if (bit == bits.end()) {
        std::string known;
        for (const auto& one : bits) known += (known.empty() ? "" : ", ") + std::string(one.name);
        node.fail(node.shown() + " is not a device status; these are: " + known);
      }
      module_.deviceStatus = static_cast<std::uint8_t>(module_.deviceStatus | bit->value);
    }
  }

  void readCommands() {
    if (!root_.has("commands")) return;
    for (const auto& [text, node] : root_["commands"].members()) {
      const auto number = unsignedFromText(text, std::numeric_limits<std::uint16_t>::max());
      if (!number || *number == extendedHartCommand || *number == 254 || *number == 255) {
        node.fail("the key is not a command number from 1 to 65535 other than 31, 254 and 255");
      }
      if (*number == hart::readIdentity || *number == hart::readIdentityByTag ||
          *number == hart::readIdentityByName) {
        node.fail("this command gives the identity");
      }
      answer(static_cast<std::uint16_t>(*number), node);
    }
  }

  void readFaults() {
    if (!root_.has("faults")) return;
    for (const JsonReader& node : root_["faults"].elements()) {
      module_.faults.push_back(readHartFault(node));
    }
  }

  const JsonReader& root_;
  SimulatedHartModule module_;
};

}  // namespace

SimulatedHartModule readHartModule(const JsonReader& root) {
  return HartModuleReader(root).read();
}

Bytes packedHartText(std::string_view characters) {
  const std::string text = upperCase(characters);
  Bytes packed;
  unsigned int bits = 0;
  unsigned int held = 0;
  for (std::size_t place = 0; place < (text.size() + 3) / 4 * 4; ++place) {
    const char character = place < text.size() ? text[place] : ' ';
    bits = (bits << 6U) | (static_cast<unsigned char>(character) & 0x3FU);
    held += 6;
    for (; held >= 8; held -= 8) packed.push_back(static_cast<std::uint8_t>(bits >> (held - 8)));
  }
  return packed;
}

}  // namespace tessara
