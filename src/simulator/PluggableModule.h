#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "simulator/ModuleFileError.h"
#include "simulator/SimulatedLine.h"
#include "simulator/nfc/SimulatedField.h"

namespace tessara {

/// What stands before the number in the device name of a TWN4 reader's port.
inline constexpr const char* twn4Prefix = "\\Device\\USBSER";

/// A simulated module, with the adapter that leads to it, ready to be put behind a port.
struct PluggableModule {
  /// For people; may be empty.
  std::string name;

  /// What stands before the number in the device name of its port: "\Device\Silabser".
  std::string deviceNamePrefix;

  std::unique_ptr<SimulatedLine> line;
};

/// The module that a module file describes, behind the adapter that its key "link" names;
/// docs/simulator.md tells the format. Throws ModuleFileError if the file cannot be read or holds
/// anything that is not understood.
PluggableModule loadPluggableModule(const std::filesystem::path& file);

/// The module that a module file puts in the field of the USB NFC reader, which is no port; nothing
/// if its link is another one. Throws as above.
std::optional<SimulatedNfcModule> loadUsbReaderModule(const std::filesystem::path& file);

}  // namespace tessara
