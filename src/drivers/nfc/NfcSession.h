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

/// How long a session waits for what. A request that fails takes less than two seconds with these.
struct NfcTimings {
  MailboxTimings mailbox{};
  /// From a command to the reader's answer.
  std::chrono::milliseconds reader{400};
  /// What passes before a request is repeated.
  std::chrono::milliseconds settling{30};
  /// A request that has taken longer than this is not repeated.
  std::chrono::milliseconds repeatWithin{800};
};

/// An open connection by way of a reader to the one module in its field.
///
/// The tag is looked for before the first request, and again before the repeat of one that failed.
/// Once a module has been found, another one that is put in its place is not mistaken for it.
class NfcSession {
 public:
  NfcSession(std::unique_ptr<ReaderLink> link, const NfcTimings& timings)
      : link_(std::move(link)), timings_(timings) {}

  /// Sends the request, at most twice, and gives the data of its answer. Throws NfcFault or
  /// ModbusFault.
  Bytes ask(const ModbusRequest& request);

 private:
  using Clock = MailboxExchange::Clock;

  Bytes attempt(const ModbusRequest& request);
  void findTag();
  Bytes exchange(std::span<const std::uint8_t> frame, bool isOpen);

  std::unique_ptr<ReaderLink> link_;
  NfcTimings timings_;
  std::optional<TagUid> tag_;  // of the module that has been found on this connection
  bool isOpen_ = false;        // its mailbox is on, and nothing has gone wrong since
};

}  // namespace tessara
