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
/// Clients come and go as on a real port: what is sent while no client has the port open is lost,
/// and what a client left unread is gone for the next one. The port goes away with the object, and
/// clients that still hold it get end of file and EIO.
///
/// Nothing here waits; the owner waits on the descriptor.
class VirtualPort {
 public:
  /// A port of its own, at defaultLineRate and in raw mode. Throws std::system_error.
  VirtualPort();

  /// The device node that clients open.
  [[nodiscard]] const std::filesystem::path& device() const { return device_; }

  /// Readable when bytes of a client have come or the last client has gone, until settle() is
  /// called. Either may also have happened when it is not readable.
  [[nodiscard]] int descriptor() const { return events_.number(); }

  /// True while a client has the port open.
  [[nodiscard]] bool isAttended() const;

  /// Acknowledges everything that has happened so far. Call it before receive(), and then receive()
  /// until it returns nothing.
  void settle();

  /// The clients' bytes that have come, up to a few thousand; empty if there are none.
  [[nodiscard]] Bytes receive() const;

  /// Discards what the last client left unread, if it has gone.
  void clearLeavings();

  /// Sends bytes. What exceeds the buffer of a client that does not read is lost.
  void send(std::span<const std::uint8_t> bytes);

  /// True if the client has read all that was sent. False if that is unknown because the
  /// client keeps others from opening the port.
  [[nodiscard]] bool isRead() const;

  /// The rate that the client has set.
  [[nodiscard]] LineRate rate() const { return lineRateOf(master_.number()); }

 private:
  FileDescriptor master_;
  std::filesystem::path device_;
  FileDescriptor events_;
  bool isClean_ = true;  // nothing has been sent since the last clearLeavings()
};

}  // namespace tessara
