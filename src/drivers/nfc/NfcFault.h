#pragma once

#include <stdexcept>
#include <string>

namespace tessara {

/// How a request to a module in a reader's field can end other than by its answer.
enum class NfcFaultKind {
  NoTag,          ///< no module in the field
  TagGone,        ///< a module that was in the field no longer answers
  TagRefusal,     ///< the tag refused the request
  MailboxOff,     ///< the tag does not allow the use of its mailbox
  MailboxBusy,    ///< the mailbox takes no message
  ModuleSilent,   ///< the message was put into the mailbox, and no answer comes
  Damage,         ///< what came has a wrong checksum or a wrong form
  ReaderSilent,   ///< the reader does not answer
  ReaderRefusal,  ///< the reader refused the request
  NoReader,       ///< the reader is not open, or has been unplugged
};

/// One failed request. The message is the cause alone: "no module in the reader's field".
class NfcFault : public std::runtime_error {
 public:
  NfcFault(NfcFaultKind kind, const std::string& cause) : std::runtime_error(cause), kind_(kind) {}

  [[nodiscard]] NfcFaultKind kind() const { return kind_; }

  /// True if repeating the request may help. A busy mailbox has been waited for already.
  [[nodiscard]] bool isWorthRepeating() const {
    return kind_ != NfcFaultKind::MailboxOff && kind_ != NfcFaultKind::MailboxBusy &&
           kind_ != NfcFaultKind::NoReader;
  }

 private:
  NfcFaultKind kind_;
};

}  // namespace tessara
