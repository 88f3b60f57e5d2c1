#include "serial/linux/PortErrno.h"

#include <cerrno>
#include <system_error>

namespace tessara {

PortError portErrorOf(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENODEV:
    case ENXIO:
    case EIO:
      return PortError::notThere();
    case EBUSY:
    case EWOULDBLOCK:
      return PortError::inUse();
    case EACCES:
    case EPERM:
      return PortError::noPermission();
    case ENOTTY:
    case EISDIR:
      return PortError::notASerialPort();
    default:
      return PortError::refused(std::generic_category().message(error));
  }
}

}  // namespace tessara
