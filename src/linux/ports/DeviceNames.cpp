#include "linux/ports/DeviceNames.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>

#include <fcntl.h>
#include <linux/serial.h>
#include <linux/tty_flags.h>
#include <sys/ioctl.h>

#include "serial/linux/FileDescriptor.h"

namespace tessara {
namespace {

struct DriverName {
  std::string_view driver;
  std::string_view name;
  /// The minimum number of digits after the name.
  std::size_t minDigits;
};

constexpr std::string_view uartName = "Serial";

/// The drivers of the kernel's UARTs, from older to newer kernels, and those of adapters.
/// ch341-uart is the serial half of the driver ch341.
constexpr std::array<DriverName, 7> driverNames{{{"serial8250", uartName, 1},
                                                 {"serial", uartName, 1},
                                                 {"port", uartName, 1},
                                                 {"cp210x", "Silabser", 1},
                                                 {"cdc_acm", "USBSER", 3},
                                                 {"ftdi_sio", "VCP", 1},
                                                 {"ch341-uart", "ch341", 1}}};

DriverName nameFor(const SerialDevice& device) {
  const auto* row =
      std::find_if(driverNames.begin(), driverNames.end(),
                   [&](const DriverName& known) { return known.driver == device.driver; });
  if (row != driverNames.end()) {
    return *row;
  }
  return {device.driver, device.uartType ? uartName : std::string_view(device.driver), 1};
}

bool terminalDeniesHardware(const std::string& node) {
  const FileDescriptor terminal(::open(node.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
  if (!terminal.isOpen()) {
    return errno == ENXIO || errno == ENODEV || errno == EIO;
  }
  serial_struct line{};
  return ::ioctl(terminal.number(), TIOCGSERIAL, &line) == 0 && line.type == PORT_UNKNOWN;
}

}  // namespace

bool isBuiltInUart(const SerialDevice& device) {
  return nameFor(device).name == uartName;
}

bool isPhantomUart(const SerialDevice& device) {
  if (!isBuiltInUart(device)) {
    return false;
  }
  return device.uartType ? *device.uartType == "0" : terminalDeniesHardware(device.node);
}

std::string deviceNameOf(const SerialDevice& device) {
  const DriverName known = nameFor(device);
  std::string number = device.name.substr(terminalKind(device.name).size());
  number.insert(0, known.minDigits - std::min(known.minDigits, number.size()), '0');
  return "\\Device\\" + std::string(known.name) + number;
}

}  // namespace tessara
