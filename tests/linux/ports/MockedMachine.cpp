#include "MockedMachine.h"

#include <filesystem>
#include <fstream>

#include <linux/serial.h>
#include <sys/ioctl.h>

namespace tessara::testing {
namespace {

const std::string controller = "/devices/pci0000:00/0000:00:14.0/usb1";

std::string usbDevice(const Adapter& adapter) {
  return controller + "/1-" + adapter.socket;
}

std::string usbInterface(const Adapter& adapter) {
  return usbDevice(adapter) + "/1-" + adapter.socket + ":1." + adapter.interfaceNumber.substr(1);
}

/// A port of usbserial is a device of its own; a modem's terminal belongs to the interface.
bool isUsbSerial(const Adapter& adapter) {
  return adapter.tty.starts_with("ttyUSB");
}

std::string portDevice(const Adapter& adapter) {
  return usbInterface(adapter) + (isUsbSerial(adapter) ? "/" + adapter.tty : "");
}

std::string driverOf(const std::string& bus, const std::string& driver) {
  return "E: DRIVER=" + driver + "\nL: driver=../../../../../../../bus/" + bus + "/drivers/" +
         driver + "\n";
}

std::string terminal(const std::string& device, const std::string& tty) {
  return "P: " + device + "/tty/" + tty + "\nE: DEVNAME=/dev/" + tty +
         "\nE: SUBSYSTEM=tty\nL: device=../../../" + device.substr(device.rfind('/') + 1) + "\n";
}

std::string uartDevice(const std::string& tty) {
  return "/devices/pnp0/00:0" + tty.substr(tty.size() - 1);
}

/// Answers TIOCGSERIAL with the type that `type` points to.
gboolean answerSerialInfo(UMockdevIoctlBase* /*handler*/, UMockdevIoctlClient* client,
                          gpointer type) {
  if (umockdev_ioctl_client_get_request(client) != TIOCGSERIAL) {
    return FALSE;
  }
  serial_struct line{};
  line.type = *static_cast<int*>(type);
  UMockdevIoctlData* data =
      umockdev_ioctl_data_resolve(umockdev_ioctl_client_get_arg(client), 0, sizeof(line), nullptr);
  umockdev_ioctl_data_update(data, 0, reinterpret_cast<guint8*>(&line), sizeof(line));
  umockdev_ioctl_data_unref(data);
  umockdev_ioctl_client_complete(client, 0, 0);
  return TRUE;
}

}  // namespace

MockedMachine::MockedMachine() : bed_(umockdev_testbed_new(), g_object_unref) {
  // Every kernel has consoles.
  addVirtualTerminal("console");
  addVirtualTerminal("tty0");
  add("P: " + controller + "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\nA: idVendor=1d6b\\n\n" +
      "A: idProduct=0002\\n\nA: serial=0000:00:14.0\\n\n\n");
}

MockedMachine::~MockedMachine() = default;

void MockedMachine::add(const std::string& description) {
  GError* error = nullptr;
  if (umockdev_testbed_add_from_string(bed_.get(), description.c_str(), &error) == FALSE) {
    ADD_FAILURE() << error->message << " in\n" << description;
    g_error_free(error);
  }
}

void MockedMachine::plugIn(const Adapter& adapter) {
  add("P: " + usbDevice(adapter) + "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\nA: idVendor=" +
      adapter.vendor + "\\n\nA: idProduct=" + adapter.product + "\\n\n" +
      (adapter.serial.empty() ? "" : "A: serial=" + adapter.serial + "\\n\n") + "\n");
  add("P: " + usbInterface(adapter) + "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_interface\n" +
      driverOf("usb", adapter.driver) + "A: bInterfaceNumber=" + adapter.interfaceNumber +
      "\\n\n\n");
  if (isUsbSerial(adapter)) {
    add("P: " + portDevice(adapter) + "\nE: SUBSYSTEM=usb-serial\n" +
        driverOf("usb-serial", adapter.driver) + "A: port_number=0\\n\n\n");
  }
  add(terminal(portDevice(adapter), adapter.tty) + "\n");
  addNode(adapter.tty);
}

void MockedMachine::pullOut(const Adapter& adapter) {
  remove(portDevice(adapter) + "/tty/" + adapter.tty);
  if (isUsbSerial(adapter)) {
    remove(portDevice(adapter));
  }
  remove(usbInterface(adapter));
  remove(usbDevice(adapter));
  removeNode(adapter.tty);
}

void MockedMachine::remove(const std::string& device) {
  umockdev_testbed_remove_device(bed_.get(), ("/sys" + device).c_str());
}

void MockedMachine::addUart(const std::string& tty, const std::string& driver, int type) {
  const std::string device = uartDevice(tty);
  add("P: " + device + "\nE: SUBSYSTEM=pnp\n" + driverOf("pnp", driver) + "\n");
  add(terminal(device, tty) + "A: type=" + std::to_string(type) + "\\n\n\n");
  addNode(tty);
}

void MockedMachine::addSilentUart(const std::string& tty, const std::string& driver, int type) {
  const std::string device = uartDevice(tty);
  add("P: " + device + "\nE: SUBSYSTEM=pnp\n" + driverOf("pnp", driver) + "\n");
  add(terminal(device, tty) + "\n");
  addNode(tty);
  int& answer = uartTypes_[tty] = type;
  UMockdevIoctlBase* handler = umockdev_ioctl_base_new();
  g_signal_connect(handler, "handle-ioctl", G_CALLBACK(answerSerialInfo), &answer);
  GError* error = nullptr;
  umockdev_testbed_attach_ioctl(bed_.get(), ("/dev/" + tty).c_str(), handler, &error);
  EXPECT_EQ(error, nullptr);
  g_object_unref(handler);
}

void MockedMachine::addVirtualTerminal(const std::string& tty) {
  add("P: /devices/virtual/tty/" + tty + "\nE: DEVNAME=/dev/" + tty + "\nE: SUBSYSTEM=tty\n\n");
}

std::string MockedMachine::nodePath(const std::string& tty) const {
  const std::unique_ptr<char, void (*)(gpointer)> root(umockdev_testbed_get_root_dir(bed_.get()),
                                                       g_free);
  return std::string(root.get()) + "/dev/" + tty;
}

void MockedMachine::addNode(const std::string& tty) const {
  std::filesystem::create_directories(std::filesystem::path(nodePath(tty)).parent_path());
  std::ofstream(nodePath(tty)).flush();
}

void MockedMachine::removeNode(const std::string& tty) const {
  std::filesystem::remove(nodePath(tty));
}

void MockedMachine::setPortOnInterface(const Adapter& adapter, const std::string& number) {
  umockdev_testbed_set_attribute(bed_.get(), ("/sys" + portDevice(adapter)).c_str(), "port_number",
                                 (number + "\n").c_str());
}

}  // namespace tessara::testing
