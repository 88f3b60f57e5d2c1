#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "drivers/nfc/Iso15693.h"
#include "drivers/nfc/MailboxPieces.h"

namespace tessara {

/// How long the two users of a mailbox wait for each other.
struct MailboxTimings {
  /// A message that the module does not fetch is discarded after this; if the mailbox is still not
  /// free after as long again, it counts as busy.
  std::chrono::milliseconds free{150};
  /// From the reader's message to the whole answer of the module.
  std::chrono::milliseconds answer{500};
};

/// One frame to a module and the frame that it answers with, through the mailbox of its tag. Knows
/// no reader and does not wait: it says which request comes next and after which pause, and takes
/// the outcome.
///
///     MailboxExchange exchange(frame, timings, now);
///     while (!exchange.isDone()) { wait exchange.pause(); exchange.answered(send
///     exchange.request()); }
///
/// The mailbox holds one message at a time, for either side. It is emptied before the frame is put
/// into it, so that an answer to an earlier frame is never taken for this one's: as long as the
/// frame is in the mailbox the module can put nothing, and once it has fetched the frame, its next
/// message is the answer.
class MailboxExchange {
 public:
  using Clock = std::chrono::steady_clock;

  /// `isOpen`: an earlier exchange has left the mailbox switched on. A mailbox that is off then has
  /// lost its field, or belongs to another tag, and is not simply switched on again.
  MailboxExchange(std::span<const std::uint8_t> frame, const MailboxTimings& timings,
                  Clock::time_point now, bool isOpen = false);

  [[nodiscard]] bool isDone() const { return state_ == State::Done; }

  /// The next request to the tag.
  [[nodiscard]] AirRequest request() const;

  /// The pause before it. The pauses between two looks at the mailbox grow with the time already
  /// waited: none at first, then a tenth of it, from 1 to 50 ms.
  [[nodiscard]] std::chrono::milliseconds pause(Clock::time_point now) const;

  /// The tag has answered the request with these data at `now`. Throws NfcFault: MailboxOff,
  /// MailboxBusy, ModuleSilent, TagGone or Damage.
  void answered(std::span<const std::uint8_t> data, Clock::time_point now);

  /// The tag has refused the request at `now`, for the cause `why`. Throws NfcFault likewise, or
  /// TagRefusal.
  void refused(const std::string& why, Clock::time_point now);

  /// The frame that the module answered with, once the exchange is done.
  [[nodiscard]] const Bytes& answer() const { return answer_; }

 private:
  enum class State {
    Disable,      // 00 to the control register: empties the mailbox
    Enable,       // 01 to the control register
    AwaitFree,    // looks whether the mailbox is free
    Write,        // puts the next piece
    AwaitAnswer,  // looks whether the module has put a message
    Measure,      // asks for its length
    Read,         // fetches it
    Done
  };

  void noteControl(std::uint8_t control, Clock::time_point now);
  void noteOccupied(std::uint8_t control, Clock::time_point now);
  void noteWritten(Clock::time_point now);
  void noteFetched(std::span<const std::uint8_t> data, Clock::time_point now);
  void requireTimeForAnswer(Clock::time_point now) const;
  [[nodiscard]] bool hasBegunToWrite() const { return written_ > 0; }

  MailboxTimings timings_;
  std::vector<Bytes> pieces_;
  bool isOpen_;
  std::size_t written_ = 0;  // pieces that are in the mailbox or have been

  State state_ = State::AwaitFree;
  Clock::time_point waitingSince_;
  bool isEnabled_ = false;  // 01 has been written by us
  bool isEmptied_ = false;  // an unfetched message has been discarded
  bool isFetched_ = false;  // the module has taken the last piece

  Bytes message_;  // what has been fetched of the message in the mailbox
  std::size_t messageLength_ = 0;
  PieceAssembler assembler_;
  Bytes answer_;
};

}  // namespace tessara
