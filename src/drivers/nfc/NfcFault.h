#pragma once

#include <stdexcept>
#include <string>

namespace tessara {

/// How a request to a module in a reader's field can end other than by its answer.
enum class NfcFaultKind {
  NoTag,          ///< no module lies in the field
  TagGone,        ///< a module that was in the field answers no more
  TagRefusal,     ///< the tag answered that it does not do that
  MailboxOff,     ///< the tag does not let its mailbox be used
  MailboxBusy,    ///< the mailbox takes no message
  ModuleSilent,   ///< the message is in the mailbox, or was fetched from it, and no answer comes
  Damage,         ///< what came is not what its checksum or its form says
  ReaderSilent,   ///< the reader does not answer
  ReaderRefusal,  ///< the reader answered that it does not do that
  NoReader,       ///< the reader is not open, or has been unplugged
};

/// One failed request. The message is the cause alone: "no module lies in the field".
class NfcFault : public std::runtime_error {
 public:
  NfcFault(NfcFaultKind kind, const std::string& cause) : std::runtime_error(cause), kind_(kind) {}

  [[nodiscard]] NfcFaultKind kind() const { return kind_; }

  /// True if asking once more may help. A busy mailbox has been waited for already.
  [[nodiscard]] bool isWorthRepeating() const {
    return kind_ != NfcFaultKind::MailboxOff && kind_ != NfcFaultKind::MailboxBusy &&
           kind_ != NfcFaultKind::NoReader;
  }

 private:
  NfcFaultKind kind_;
};

}  // namespace tessara
