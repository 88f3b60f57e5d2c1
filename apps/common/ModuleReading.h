#pragma once

#include <stdexcept>
#include <string>

#include "common/DeviceLog.h"
#include "common/ExitCode.h"
#include "common/ModuleRequest.h"
#include "control/ModulInfoFLII.h"
#include "linux/LinuxPlatform.h"

namespace tessara {

/// A module could not be read; carries the exit code of the program.
class ReadFailure : public std::runtime_error {
 public:
  ReadFailure(ExitCode code, const std::string& message)
      : std::runtime_error(message), code_(code) {}

  [[nodiscard]] ExitCode code() const { return code_; }

 private:
  ExitCode code_;
};

/// Brings the initialised control up for the port of the request. Throws ReadFailure if there is no
/// such port, if the control does not come up, or if the address is not one that modules on this
/// path have.
void bringUp(ModulInfoFLII& control, LinuxPlatform& platform, const ModuleRequest& request);

/// Brings the initialised control up for the port that was used last, whatever the request names;
/// if that has gone, the control takes another, or none. Errors of the control pass to the caller;
/// throws ReadFailure for an address as above.
void bringUpAtLastPort(ModulInfoFLII& control, LinuxPlatform& platform,
                       const ModuleRequest& request);

/// Reads the module once. Throws ReadFailure if that gives no valid data.
void readOnce(ModulInfoFLII& control, LinuxPlatform& platform, const DeviceLog& log);

}  // namespace tessara
