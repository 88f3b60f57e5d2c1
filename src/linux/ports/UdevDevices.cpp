#include <array>
#include <memory>

#include <libudev.h>

#include "linux/ports/SerialDevice.h"

namespace tessara {
namespace {

struct Release {
  void operator()(udev* context) const { udev_unref(context); }
  void operator()(udev_enumerate* walk) const { udev_enumerate_unref(walk); }
  void operator()(udev_device* device) const { udev_device_unref(device); }
};
template <typename Object>
using Owned = std::unique_ptr<Object, Release>;

std::string textOf(const char* text) {
  return text == nullptr ? std::string() : std::string(text);
}

std::string attribute(udev_device* device, const char* name) {
  return device == nullptr ? std::string() : textOf(udev_device_get_sysattr_value(device, name));
}

/// Together these match every name but those of the virtual consoles, tty0 onwards: every machine
/// has several dozen of them, and udev opens some thirty folders for each one that it lists.
constexpr std::array<const char*, 4> namesButConsoles{"[!t]*", "t[!t]*", "tt[!y]*", "tty[!0-9]*"};

/// True for the other terminals without a device, which are not ports. This is judged by their
/// paths, which is quicker than asking udev for each.
bool isConsole(std::string_view path) {
  return path.find("/devices/virtual/") != std::string_view::npos &&
         !isPortWithoutDevice(path.substr(path.rfind('/') + 1));
}

/// `parent` is the device that the terminal belongs to, null for a terminal without one. Children
/// own their parents.
SerialDevice describe(udev_device* terminal, udev_device* parent) {
  SerialDevice found;
  found.name = textOf(udev_device_get_sysname(terminal));
  found.node = textOf(udev_device_get_devnode(terminal));
  found.driver = parent == nullptr ? "" : textOf(udev_device_get_driver(parent));
  if (found.driver.empty()) {
    found.driver = terminalKind(found.name);
  }
  if (parent == nullptr) {
    return found;
  }
  udev_device* usb = udev_device_get_parent_with_subsystem_devtype(terminal, "usb", "usb_device");
  if (usb == nullptr) {
    const char* type = udev_device_get_sysattr_value(terminal, "type");
    found.uartType = type == nullptr ? std::nullopt : std::optional<std::string>(type);
    return found;
  }
  udev_device* interface =
      udev_device_get_parent_with_subsystem_devtype(terminal, "usb", "usb_interface");
  found.usb = usbIdentity(attribute(usb, "idVendor"), attribute(usb, "idProduct"),
                          attribute(usb, "serial"), attribute(interface, "bInterfaceNumber"));
  found.usbPath = textOf(udev_device_get_devpath(usb));
  found.usbPort = attribute(parent, "port_number");
  return found;
}

}  // namespace

FoundDevices udevDevices() {
  const Owned<udev> context(udev_new());
  const Owned<udev_enumerate> walk(context ? udev_enumerate_new(context.get()) : nullptr);
  if (!walk || udev_enumerate_add_match_subsystem(walk.get(), "tty") < 0) {
    return std::nullopt;
  }
  for (const char* names : namesButConsoles) {
    if (udev_enumerate_add_match_sysname(walk.get(), names) < 0) {
      return std::nullopt;
    }
  }
  if (udev_enumerate_scan_devices(walk.get()) < 0) {
    return std::nullopt;
  }
  udev_list_entry* entry = udev_enumerate_get_list_entry(walk.get());
  if (entry == nullptr) {
    // Every kernel has at least a console, so udev is not running.
    return std::nullopt;
  }
  std::vector<SerialDevice> devices;
  for (; entry != nullptr; entry = udev_list_entry_get_next(entry)) {
    const std::string path = udev_list_entry_get_name(entry);
    const Owned<udev_device> terminal(
        isConsole(path) ? nullptr : udev_device_new_from_syspath(context.get(), path.c_str()));
    if (!terminal) {
      continue;  // a console, or unplugged in the meantime
    }
    devices.push_back(describe(terminal.get(), udev_device_get_parent(terminal.get())));
  }
  return devices;
}

}  // namespace tessara
