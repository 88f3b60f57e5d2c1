#pragma once

#include <chrono>
#include <cstdint>
#include <deque>
#include <optional>
#include <utility>

#include "drivers/nfc/Iso15693.h"
#include "drivers/nfc/MailboxPieces.h"
#include "simulator/ModbusSlave.h"
#include "simulator/SimulatedModule.h"

namespace tessara {

/// An ISO 15693 tag with a mailbox, and the module on the other side of the mailbox.
///
/// The module fetches a message as soon as it has time. While it works on an answer it has none,
/// and it drops an answer that no longer fits into the mailbox.
class SimulatedTag {
 public:
  using Clock = std::chrono::steady_clock;

  /// Throws std::invalid_argument if the module is invalid.
  SimulatedTag(SimulatedModule module, const TagUid& uid) : module_(std::move(module)), uid_(uid) {}

  [[nodiscard]] const TagUid& uid() const { return uid_; }

  /// The tag's answer to a request that reaches it at `now`; nothing if the request is for another
  /// tag.
  std::optional<AirAnswer> answer(const AirRequest& request, Clock::time_point now);

  /// The field has gone, and with it what the tag does not store.
  void losePower();

  /// Stored: whether the mailbox may be used.
  void allowMailbox(bool isAllowed);

  /// From now on the mailbox does, or no longer does, seem to hold a message that is not fetched.
  void blockMailbox(bool isBlocked) { isBlocked_ = isBlocked; }

  /// From now on the module does not, or does again, fetch messages.
  void sendModuleToSleep(bool isAsleep) { isAsleep_ = isAsleep; }

  ModbusSlave& module() { return module_; }

  /// The fault of the module that unplugs the reader now, if any; returned once.
  std::optional<faults::Unplug> takeUnplug() { return std::exchange(unplug_, std::nullopt); }

 private:
  AirAnswer execute(const AirRequest& request);
  [[nodiscard]] AirAnswer inventory() const;
  [[nodiscard]] AirAnswer readConfiguration(const Bytes& data) const;
  AirAnswer writeConfiguration(const Bytes& data);
  AirAnswer presentPassword(const Bytes& data);
  [[nodiscard]] AirAnswer readDynamic(const Bytes& data) const;
  AirAnswer writeDynamic(const Bytes& data);
  AirAnswer writeMessage(const Bytes& data);
  [[nodiscard]] AirAnswer readMessageLength() const;
  AirAnswer readMessage(const Bytes& data);

  void letModuleWork(Clock::time_point now);
  void putAnswer(Clock::time_point now);
  void fetch(Clock::time_point now);
  [[nodiscard]] std::uint8_t control() const;
  void setControl(std::uint8_t control);

  ModbusSlave module_;
  TagUid uid_;
  bool isMailboxAllowed_ = true;
  bool isPasswordPresented_ = false;
  bool isBlocked_ = false;
  bool isAsleep_ = false;

  std::uint8_t control_ = 0;
  Bytes message_;  // in the mailbox

  PieceAssembler request_;
  std::deque<Bytes> answer_;  // messages that the module has yet to put
  Clock::time_point answerDue_;
  std::optional<faults::Unplug> unplug_;
};

}  // namespace tessara
