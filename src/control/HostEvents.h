#pragma once

#include <cstdint>

namespace tessara {

/// What a module access is doing, as the host hears it.
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
/// expect. A callback must not throw: the operation would take it for an error of the module and,
/// where it is a read, try again.
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
  /// The user wants the parameter set in the module, and the module fits.
  virtual void SetConfiguration() = 0;
  /// The user wants the parameter set on disk.
  virtual void SaveConfiguration() = 0;
  /// The user wants a parameter set from disk.
  virtual void LoadConfiguration() = 0;
  /// The user wants the parameter set on paper.
  virtual void PrintConfiguration() = 0;
  /// The host has read DataTrafic.
  virtual void DataTransfer() = 0;
  /// The path to the module was set; true for an NFC reader.
  virtual void NFCReader(bool& bNFCReader) = 0;
};

}  // namespace tessara
