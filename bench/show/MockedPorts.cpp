#include "MockedPorts.h"

#include <cstdlib>
#include <stdexcept>
#include <string>

#include <unistd.h>

namespace tessara::bench {
namespace {

constexpr int consoles = 64;

constexpr const char* preload = "LD_PRELOAD";

const std::string controller = "/devices/pci0000:00/0000:00:14.0/usb1";

std::string driverOf(const std::string& bus, const std::string& driver) {
  return "E: DRIVER=" + driver + "\nL: driver=../../../../../../../bus/" + bus + "/drivers/" +
         driver + "\n";
}

std::string terminal(const std::string& device, const std::string& tty) {
  return "P: " + device + "/tty/" + tty + "\nN: " + tty + "\nE: DEVNAME=/dev/" + tty +
         "\nE: SUBSYSTEM=tty\n";
}

}  // namespace

void seeMockedDevices(char** arguments) {
  if (std::getenv(preload) != nullptr) return;
  if (::setenv(preload, "libumockdev-preload.so.0", 1) == 0) {
    ::execv("/proc/self/exe", arguments);
  }
  throw std::runtime_error("the program cannot be started with mocked devices");
}

MockedPorts::MockedPorts() : bed_(umockdev_testbed_new(), g_object_unref) {
  if (umockdev_in_mock_environment() == FALSE) {
    throw std::runtime_error("there are no mocked devices in this process");
  }
  for (int i = 0; i < consoles; ++i) {
    add(terminal("/devices/virtual", "tty" + std::to_string(i)) + "\n");
  }
  add("P: " + controller +
      "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\nA: idVendor=1d6b\\n\nA: idProduct=0002\\n\n\n");
  for (int i = 0; i < 10; ++i) addUsbPort("ttyUSB" + std::to_string(i), "cp210x", "10c4", "ea60");
  for (int i = 10; i < 13; ++i) {
    addUsbPort("ttyUSB" + std::to_string(i), "ftdi_sio", "0403", "6001");
  }
  for (int i = 0; i < 3; ++i) addUsbPort("ttyACM" + std::to_string(i), "cdc_acm", "09d8", "0420");
  for (int i = 3; i < 5; ++i) addUsbPort("ttyACM" + std::to_string(i), "cdc_acm", "2458", "0001");
  for (int i = 0; i < 2; ++i) addUart("ttyS" + std::to_string(i));
}

void MockedPorts::add(const std::string& description) {
  GError* error = nullptr;
  if (umockdev_testbed_add_from_string(bed_.get(), description.c_str(), &error) == FALSE) {
    const std::string what = error->message;
    g_error_free(error);
    throw std::runtime_error("no mocked device: " + what);
  }
}

void MockedPorts::addUsbPort(const std::string& tty, const std::string& driver,
                             const std::string& vendor, const std::string& product) {
  const std::string number = std::to_string(++sockets_);
  const std::string device = controller + "/1-" + number;
  const std::string interface = device + "/1-" + number + ":1.0";
  add("P: " + device + "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\nA: idVendor=" + vendor +
      "\\n\nA: idProduct=" + product + "\\n\nA: serial=S" + number + "\\n\n\n");
  add("P: " + interface + "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_interface\n" +
      driverOf("usb", driver) + "A: bInterfaceNumber=00\\n\n\n");
  const bool isUsbSerial = tty.starts_with("ttyUSB");
  const std::string port = isUsbSerial ? interface + "/" + tty : interface;
  if (isUsbSerial) {
    add("P: " + port + "\nE: SUBSYSTEM=usb-serial\n" + driverOf("usb-serial", driver) +
        "A: port_number=0\\n\n\n");
  }
  add(terminal(port, tty) + "\n");
}

void MockedPorts::addUart(const std::string& tty) {
  const std::string device = "/devices/pnp0/00:0" + tty.substr(tty.size() - 1);
  add("P: " + device + "\nE: SUBSYSTEM=pnp\n" + driverOf("pnp", "serial") + "\n");
  add(terminal(device, tty) + "A: type=4\\n\n\n");
}

}  // namespace tessara::bench
