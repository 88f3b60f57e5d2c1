#include "BareEnumeration.h"

#include <cstring>
#include <initializer_list>

#include <libudev.h>

namespace tessara::bench {
namespace {

/// Keeps the compiler from removing values that are never read.
const char* volatile lastText;

void ask(udev_device* device, const char* attribute) {
  lastText = device == nullptr ? nullptr : udev_device_get_sysattr_value(device, attribute);
}

void askFor(udev_device* terminal) {
  lastText = udev_device_get_sysname(terminal);
  lastText = udev_device_get_devnode(terminal);
  udev_device* parent = udev_device_get_parent(terminal);
  lastText = udev_device_get_driver(parent);
  udev_device* usb = udev_device_get_parent_with_subsystem_devtype(terminal, "usb", "usb_device");
  if (usb == nullptr) return ask(terminal, "type");
  for (const char* attribute : {"idVendor", "idProduct", "serial"}) ask(usb, attribute);
  ask(udev_device_get_parent_with_subsystem_devtype(terminal, "usb", "usb_interface"),
      "bInterfaceNumber");
  lastText = udev_device_get_devpath(usb);
  ask(parent, "port_number");
}

}  // namespace

int enumerateBarely() {
  int ports = 0;
  udev* context = udev_new();
  udev_enumerate* walk = udev_enumerate_new(context);
  udev_enumerate_add_match_subsystem(walk, "tty");
  udev_enumerate_scan_devices(walk);
  for (udev_list_entry* entry = udev_enumerate_get_list_entry(walk); entry != nullptr;
       entry = udev_list_entry_get_next(entry)) {
    const char* path = udev_list_entry_get_name(entry);
    if (std::strstr(path, "/devices/virtual/") != nullptr) continue;
    udev_device* terminal = udev_device_new_from_syspath(context, path);
    askFor(terminal);
    udev_device_unref(terminal);
    ++ports;
  }
  udev_enumerate_unref(walk);
  udev_unref(context);
  return ports;
}

}  // namespace tessara::bench
