#pragma once

#include <stdexcept>
#include <string>

#include "common/DeviceLog.h"
#include "common/ExitCode.h"
#include "common/ReadRequest.h"
#include "control/ModulInfoFLII.h"
#include "linux/LinuxPlatform.h"

namespace tessara {

/// A module could not be read; says how the program is to end.
class ReadFailure : public std::runtime_error {
 public:
  ReadFailure(ExitCode code, const std::string& message)
      : std::runtime_error(message), code_(code) {}

  [[nodiscard]] ExitCode code() const { return code_; }

 private:
  ExitCode code_;
};

/// Brings the control, which is initialised, up for the port of the request. Throws ReadFailure if
/// there is no such port or if the control does not come up.
void bringUp(ModulInfoFLII& control, LinuxPlatform& platform, const ReadRequest& request);

/// Brings the control, which is initialised, up for the port that was used last, whatever the
/// request says of it; if that has gone, the control takes another, or none. Errors of the control
/// pass to the caller.
void bringUpAtLastPort(ModulInfoFLII& control, LinuxPlatform& platform, const ReadRequest& request);

/// Reads the module once. Throws ReadFailure if that does not lead to valid data.
void readOnce(ModulInfoFLII& control, LinuxPlatform& platform, const DeviceLog& log);

}  // namespace tessara
