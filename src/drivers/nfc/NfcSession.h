#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "drivers/modbus/ModbusCodec.h"
#include "drivers/nfc/MailboxExchange.h"
#include "drivers/nfc/ReaderLink.h"

namespace tessara {

/// How long a session waits for what. With the defaults a failing request takes less than two
/// seconds.
struct NfcTimings {
  MailboxTimings mailbox{};
  /// From a command to the reader's answer.
  std::chrono::milliseconds reader{400};
  /// The pause before a request is repeated.
  std::chrono::milliseconds settling{30};
  /// What a busy module is left before it is asked again, for as long as an answer may take.
  std::chrono::milliseconds busyPause{50};
  /// A request that has taken longer than this is not repeated.
  std::chrono::milliseconds repeatWithin{800};
};

/// An open connection through a reader to the one module in its field.
///
/// The tag is searched for before the first request, and again before a failed one is repeated.
/// Once a module has been found, another one in its place is not mistaken for it.
class NfcSession {
 public:
  NfcSession(std::unique_ptr<ReaderLink> link, const NfcTimings& timings)
      : link_(std::move(link)), timings_(timings) {}

  /// Sends the request and returns the data of its answer. A request that failed is repeated once,
  /// one that the module answers with exception 5 or 6 until the time for an answer is over. Throws
  /// NfcFault or ModbusFault.
  Bytes ask(const ModbusRequest& request);

 private:
  using Clock = MailboxExchange::Clock;

  Bytes attemptUntilFree(const ModbusRequest& request, Clock::time_point end);
  Bytes attempt(const ModbusRequest& request);
  void findTag();
  Bytes exchange(std::span<const std::uint8_t> frame, bool isOpen);

  std::unique_ptr<ReaderLink> link_;
  NfcTimings timings_;
  std::optional<TagUid> tag_;  // of the module that has been found on this connection
  bool isOpen_ = false;        // its mailbox is on, and nothing has gone wrong since
};

}  // namespace tessara
