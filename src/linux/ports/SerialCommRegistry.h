#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Variant.h"
#include "linux/PortProblems.h"
#include "linux/PortSource.h"
#include "platform/RegistryApi.h"

namespace tessara {

/// The serial ports of a Linux system in the form of the registry key
/// HARDWARE\DEVICEMAP\SERIALCOMM, and the USB devices behind them in that of their keys.
///
/// One walk over the ports sees one state of the system: the ports are looked up when the key is
/// opened for reading or the first Viator modem is asked for, which is where a walk begins, and
/// serve all questions until the next walk. The control's list has room for RegEnum::maxPorts ports
/// and fails at one more, so that further ports are left out and reported.
class SerialCommRegistry final : public RegistryApi {
 public:
  /// `ports` must outlive this object.
  explicit SerialCommRegistry(const PortSource& ports, PortProblemSink report = {})
      : ports_(ports), report_(std::move(report)) {}

  /// 2 (not found) for any other key, and also if there are no ports. Every right is granted.
  /// An error of the source of ports passes to the caller.
  std::int32_t RegOpenKeyExA(std::int32_t hive, const std::string& subKey, std::uint32_t options,
                             std::uint32_t access, RegistryKey& key) override;
  /// 259 (no more items) past the last port, 234 (more data) if the buffer is too small, 6 (invalid
  /// handle) for a key that is not open.
  std::int32_t RegEnumValueA(RegistryKey key, std::uint32_t index, std::string& name,
                             std::uint32_t& length) override;
  /// 2 (not found) for a name that no port has; the other errors as above. Letter case in the name
  /// is ignored.
  std::int32_t RegQueryValueExA(RegistryKey key, const std::string& valueName, std::uint32_t& type,
                                std::string* data, std::uint32_t& size) override;
  std::int32_t RegCloseKey(RegistryKey key) override;

  /// The value of a USB key of the local machine, or nothing.
  Variant usbKeyValue(const std::u16string& key, const std::u16string& name);

 private:
  struct Snapshot;
  void look();
  [[nodiscard]] const Snapshot* behind(RegistryKey key) const;

  const PortSource& ports_;
  PortProblemSink report_;
  /// The last state of the system, and whether a walk over it has already begun.
  std::shared_ptr<const Snapshot> current_;
  bool walked_ = false;
  std::map<RegistryKey, std::shared_ptr<const Snapshot>> openKeys_;
  RegistryKey lastKey_ = 0;
};

}  // namespace tessara
