#pragma once

#include <cstdint>

namespace tessara {

/// The activity of the control as reported to the host.
enum class Activity : std::int32_t {
  AccessOver = 0,
  Busy = 1,
  ConnectionFailed = 3,
  Scanning = 4,
  HostWorkEnded = 5,
  NoInterface = 6,
  PassedOn7 = 7,
  PassedOn8 = 8,
};

/// The callbacks from the control to its host. They run on the control's thread, inside the
/// operation that raises them. Arguments are passed by reference, as hosts of this ecosystem
/// expect. A callback must not throw: the operation would take it for an error of the module, and a
/// read would be repeated.
class HostEvents {
 public:
  HostEvents() = default;
  HostEvents(const HostEvents&) = delete;
  HostEvents& operator=(const HostEvents&) = delete;
  virtual ~HostEvents() = default;

  /// The control's activity has changed; the values are those of Activity.
  virtual void ModulActive(std::int32_t& lStatus) = 0;
  /// StatusString was written or cleared; the host reads the property.
  virtual void StatusChange() = 0;
  /// The user wants the parameter set transferred to the module, and the module matches.
  virtual void SetConfiguration() = 0;
  /// The user wants the parameter set saved.
  virtual void SaveConfiguration() = 0;
  /// The user wants a parameter set loaded.
  virtual void LoadConfiguration() = 0;
  /// The user wants the parameter set printed.
  virtual void PrintConfiguration() = 0;
  /// The host has read DataTrafic.
  virtual void DataTransfer() = 0;
  /// The path to the module was selected; true for an NFC reader.
  virtual void NFCReader(bool& bNFCReader) = 0;
};

}  // namespace tessara
