#pragma once

#include <string>

#include "linux/ports/SerialDevice.h"

namespace tessara {

/// True for a UART of the machine itself, as opposed to an adapter.
bool isBuiltInUart(const SerialDevice& device);

/// True for a UART for which the kernel has a terminal but no hardware. Where the kernel's device
/// tree does not say, the terminal itself is asked; one that cannot be asked counts as hardware.
bool isPhantomUart(const SerialDevice& device);

/// The name by which the port list recognises the kind of adapter, with the kernel's number of the
/// terminal: "\Device\Silabser0", "\Device\USBSER003", "\Device\Serial1"; "\Device\pl23034" for
/// a driver that the port list does not know.
std::string deviceNameOf(const SerialDevice& device);

}  // namespace tessara
