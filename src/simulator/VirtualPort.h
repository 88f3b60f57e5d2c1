#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

#include "serial/linux/FileDescriptor.h"
#include "simulator/LineRate.h"
#include "simulator/ModbusCodec.h"

namespace tessara {

/// The far end of a serial line whose near end other programs open as /dev/pts/<n>.
///
/// Clients come and go as on a real port: what is sent while nobody has the port open is lost, and
/// what a client left unread is gone for the next one. With the object the port goes away, and
/// clients that still hold it get end of file and EIO.
///
/// Nothing here waits; whoever owns the object waits on its descriptor.
class VirtualPort {
 public:
  /// A port of its own, at defaultLineRate and in raw mode. Throws std::system_error.
  VirtualPort();

  /// The device node that clients open.
  [[nodiscard]] const std::filesystem::path& device() const { return device_; }

  /// Readable when bytes of a client have come or the last client has gone, until settle() is
  /// called. Both may have happened all the same when it is not.
  [[nodiscard]] int descriptor() const { return events_.number(); }

  /// True while a client has the port open.
  [[nodiscard]] bool isAttended() const;

  /// Takes note of all that has happened so far. To be called before receive(), which is then to be
  /// called until it gives nothing.
  void settle();

  /// What has come of the clients' bytes, up to a few thousand; empty if nothing has.
  [[nodiscard]] Bytes receive() const;

  /// Clears away what the last client has left unread, if it has gone.
  void clearLeavings();

  /// Puts bytes on the line. What a client that doesn't read has no room for is lost.
  void send(std::span<const std::uint8_t> bytes);

  /// True if the client has read all that was sent. False if that cannot be told, because the
  /// client lets nobody else look.
  [[nodiscard]] bool isRead() const;

  /// The rate that the client has set.
  [[nodiscard]] LineRate rate() const { return lineRateOf(master_.number()); }

 private:
  FileDescriptor master_;
  std::filesystem::path device_;
  FileDescriptor events_;
  bool isClean_ = true;  // nothing has been sent since a client's leavings were cleared away
};

}  // namespace tessara
