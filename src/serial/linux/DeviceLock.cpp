#include "serial/DeviceLock.h"

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>

#include "serial/linux/FileDescriptor.h"
#include "serial/linux/PortErrno.h"

namespace tessara {

struct DeviceLock::System {
  FileDescriptor device;  ///< closing it gives the lock back
};

DeviceLock::DeviceLock(const std::string& device)
    : system_(std::make_unique<System>(
          System{FileDescriptor(::open(device.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC))})) {
  const FileDescriptor& held = system_->device;
  if (!held.isOpen() || ::flock(held.number(), LOCK_EX | LOCK_NB) != 0) throw portErrorOf(errno);
}

DeviceLock::~DeviceLock() = default;

}  // namespace tessara
