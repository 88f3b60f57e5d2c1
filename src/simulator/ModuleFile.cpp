#include "simulator/ModuleFile.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <limits>
#include <optional>
#include <system_error>
#include <utility>

#include "simulator/FaultFile.h"
#include "simulator/ModuleNumber.h"
#include "simulator/ModuleText.h"

namespace tessara {

namespace {

constexpr std::size_t serialNumberWords = 4;

/// The word of a version "1.234": four decimal digits, most significant first. Missing ones are 0.
std::optional<std::uint16_t> versionWord(std::string_view text) {
  constexpr std::size_t maxLength = 5;
  if (text.empty() || text.size() == 2 || text.size() > maxLength) return std::nullopt;
  unsigned int word = 0;
  int shift = 12;
  for (std::size_t place = 0; place < text.size(); ++place) {
    if (place == 1) {
      if (text[place] != '.') return std::nullopt;
      continue;
    }
    if (text[place] < '0' || text[place] > '9') return std::nullopt;
    word |= static_cast<unsigned int>(text[place] - '0') << shift;
    shift -= 4;
  }
  return static_cast<std::uint16_t>(word);
}

class ModuleReader {
 public:
  explicit ModuleReader(const JsonReader& root) : root_(root) {}

  SimulatedModule read(const std::vector<std::string_view>& otherKeys) {
    std::vector<std::string_view> keys{"link",         "address",  "vendorId",    "groupId",
                                       "familyId",     "deviceId", "firmware",    "secondVersion",
                                       "serialNumber", "name",     "namePadding", "status",
                                       "registers",    "faults"};
    keys.insert(keys.end(), otherKeys.begin(), otherKeys.end());
    root_.allowOnly(keys);
    if (root_.has("address")) {
      module_.address = static_cast<std::uint8_t>(root_["address"].number(1, maxAddress));
    }
    module_.identification = {readWord(root_["vendorId"]), readWord(root_["groupId"]),
                              readWord(root_["familyId"]), readWord(root_["deviceId"])};
    readVersion("firmware", firmwareRegister);
    readVersion("secondVersion", secondVersionRegister);
    readSerialNumber();
    readName();
    readRegisters("status");
    readRegisters("registers");
    readFaults();
    return std::move(module_);
  }

 private:
  void readVersion(const std::string& key, std::uint16_t number) {
    if (!root_.has(key)) return;
    const JsonReader node = root_[key];
    if (node.isText() && !node.text().starts_with("0x")) {
      const auto word = versionWord(node.text());
      if (!word) node.fail(node.shown() + " is not a version such as \"1.234\"");
      module_.registers[number] = *word;
    } else {
      module_.registers[number] = readWord(node);
    }
  }

  void readSerialNumber() {
    if (!root_.has("serialNumber")) return;
    constexpr std::uint64_t maxSerial = std::numeric_limits<std::uint64_t>::max();
    const JsonReader node = root_["serialNumber"];
    const auto serial =
        node.isText() ? unsignedFromText(node.text(), maxSerial) : node.number(0, maxSerial);
    if (!serial) node.fail(node.shown() + " is not a number of 64 bits");
    for (std::size_t index = 0; index < serialNumberWords; ++index) {
      const auto number = static_cast<std::uint16_t>(serialNumberRegister + index);
      module_.registers[number] = static_cast<std::uint16_t>(*serial >> (16 * index));
    }
  }

  void readName() {
    if (!root_.has("name")) {
      if (root_.has("namePadding")) root_["namePadding"].fail("there is no name to pad");
      return;
    }
    module_.name = root_["name"].text();
    const Bytes name = readPaddedName(root_);
    for (std::size_t index = 0; index < nameLength; index += 2) {
      const auto number = static_cast<std::uint16_t>(nameRegister + index / 2);
      module_.registers[number] = static_cast<std::uint16_t>(name[index] << 8 | name[index + 1]);
    }
  }

  void readRegisters(const std::string& key) {
    if (!root_.has(key)) return;
    for (const auto& [text, node] : root_[key].members()) {
      const auto number = unsignedFromText(text, std::numeric_limits<std::uint16_t>::max());
      if (!number) node.fail("the key is not a register number from 0 to 65535");
      if (!module_.registers.emplace(static_cast<std::uint16_t>(*number), readWord(node)).second) {
        node.fail("register " + std::to_string(*number) + " is given twice");
      }
    }
  }

  void readFaults() {
    if (!root_.has("faults")) return;
    for (const JsonReader& node : root_["faults"].elements()) {
      module_.faults.push_back(readFault(node));
    }
  }

  const JsonReader& root_;
  SimulatedModule module_;
};

SimulatedModule readModbusModule(const JsonReader& root) {
  if (root.has("link") && root["link"].text() != "modbus") {
    root["link"].fail(root["link"].shown() + " is not the link of a Modbus module");
  }
  return readModule(root);
}

}  // namespace

SimulatedModule readModule(const JsonReader& root, const std::vector<std::string_view>& otherKeys) {
  return ModuleReader(root).read(otherKeys);
}

SimulatedModule parseModule(std::string_view text, const std::string& source) {
  return readModuleText(text, source, readModbusModule);
}

SimulatedModule loadModule(const std::filesystem::path& file) {
  return readModuleFile(file, readModbusModule);
}

std::string moduleFileText(const std::filesystem::path& file) {
  const auto unreadable = [&file](int error) {
    return ModuleFileError(file.string() +
                           ": cannot be read: " + std::generic_category().message(error));
  };
  if (std::filesystem::is_directory(file)) throw unreadable(EISDIR);
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw unreadable(errno);
  return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace tessara
