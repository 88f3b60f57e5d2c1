#pragma once

#include <string>

#include "linux/ports/SerialDevice.h"

namespace tessara {

/// True for a UART of the machine itself, as opposed to an adapter.
bool isBuiltInUart(const SerialDevice& device);

/// True for a UART that the kernel has a terminal for but no hardware. Where the kernel's tree does
/// not tell, the terminal itself is asked; one that cannot be asked counts as hardware.
bool isPhantomUart(const SerialDevice& device);

/// The name by which the port list tells the kind of adapter, with the number that the kernel gave
/// the terminal: "\Device\Silabser0", "\Device\USBSER003", "\Device\Serial1"; "\Device\pl23034" for
/// a driver that the port list does not know.
std::string deviceNameOf(const SerialDevice& device);

}  // namespace tessara
