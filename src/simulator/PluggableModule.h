#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "simulator/ModuleFileError.h"
#include "simulator/SimulatedLine.h"
#include "simulator/nfc/SimulatedField.h"

namespace tessara {

/// What precedes the number in the device name of a TWN4 reader's port.
inline constexpr const char* twn4Prefix = "\\Device\\USBSER";

/// A simulated module with the adapter that leads to it, ready to be connected to a port.
struct PluggableModule {
  /// For people; may be empty.
  std::string name;

  /// What precedes the number in the device name of its port: "\Device\Silabser".
  std::string deviceNamePrefix;

  std::unique_ptr<SimulatedLine> line;
};

/// The module that a module file describes, with the adapter that its key "link" names;
/// docs/simulator.md has the format. Throws ModuleFileError if the file cannot be read or holds
/// anything unknown.
PluggableModule loadPluggableModule(const std::filesystem::path& file);

/// The module that a module file puts in the field of the USB NFC reader, which is not a port;
/// nothing if its link is another one. Throws as above.
std::optional<SimulatedNfcModule> loadUsbReaderModule(const std::filesystem::path& file);

}  // namespace tessara
