#include <filesystem>
#include <fstream>

#include "linux/ports/SerialDevice.h"

namespace tessara {
namespace {

namespace fs = std::filesystem;

/// The first line of an attribute; nothing if there is no such attribute.
std::optional<std::string> attribute(const fs::path& folder, const char* name) {
  std::ifstream file(folder / name);
  std::string line;
  return std::getline(file, line) ? std::optional(line) : std::nullopt;
}

/// The folder itself or the nearest parent that has the attribute; empty if there is none.
fs::path ancestorWith(const char* name, fs::path folder) {
  std::error_code error;
  while (folder.has_relative_path()) {
    if (fs::exists(folder / name, error)) {
      return folder;
    }
    folder = folder.parent_path();
  }
  return {};
}

SerialDevice describe(const fs::path& sys, const fs::path& terminal, const fs::path& device) {
  SerialDevice found;
  found.name = terminal.filename();
  std::error_code error;
  found.driver = fs::read_symlink(device / "driver", error).filename();
  if (found.driver.empty()) {
    found.driver = terminalKind(found.name);
  }
  if (device.empty()) {
    return found;
  }
  const fs::path usb = ancestorWith("idVendor", device);
  if (usb.empty()) {
    found.uartType = attribute(terminal, "type");
    return found;
  }
  found.usb = usbIdentity(
      attribute(usb, "idVendor").value_or(""), attribute(usb, "idProduct").value_or(""),
      attribute(usb, "serial").value_or(""),
      attribute(ancestorWith("bInterfaceNumber", device), "bInterfaceNumber").value_or(""));
  found.usbPath = '/' + usb.lexically_relative(sys).string();
  found.usbPort = attribute(device, "port_number").value_or("");
  return found;
}

}  // namespace

FoundDevices sysfsDevices(const std::string& root) {
  std::error_code error;
  const fs::path sys = fs::canonical(root + "/sys", error);
  fs::directory_iterator terminal(sys / "class" / "tty", error);
  if (error || terminal == fs::directory_iterator()) {
    return std::nullopt;
  }
  std::vector<SerialDevice> devices;
  for (; terminal != fs::directory_iterator(); terminal.increment(error)) {
    const fs::path device = fs::canonical(terminal->path() / "device", error);
    if (!device.empty() || isPortWithoutDevice(terminal->path().filename().string())) {
      devices.push_back(describe(sys, terminal->path(), device));
      devices.back().node = root + "/dev/" + devices.back().name;
    }
  }
  return devices;
}

}  // namespace tessara
