#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/Variant.h"
#include "linux/PortSource.h"

namespace tessara {

/// The registry values of the local machine for the USB devices behind serial ports:
/// - SYSTEM\ControlSet001\Enum\USB\VID_2458&PID_0001\<n>\Device Parameters, PortName: the port of
///   the nth Viator modem, from 1;
/// - SYSTEM\CurrentControlSet\Services\usbser\enum: Count, the number of devices that usbser
///   serves, and under 0, 1 ... the instance path of each: USB\VID_09D8&PID_0420\<serial number>;
/// - SYSTEM\CurrentControlSet\Enum\<instance path>\Device Parameters, PortName: the port of a
///   device.
class UsbKeys {
 public:
  /// Holds the values of those ports whose USB device is known.
  explicit UsbKeys(const std::vector<KnownPort>& ports);

  /// The value, or nothing. Letter case in key and name is ignored.
  [[nodiscard]] Variant value(const std::u16string& key, const std::u16string& name) const;

 private:
  void add(const std::string& key, const std::string& name, Variant value);

  std::map<std::u16string, Variant> values_;
};

}  // namespace tessara
