#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <variant>

#include "json/JsonReader.h"
#include "simulator/Fault.h"

namespace tessara {

/// What goes wrong between a reader and a tag. The requests that the reader sends into its field
/// are counted, from 1 on: the search for a tag, each look at the mailbox, each piece of a message.
namespace fieldFaults {

/// No tag hears this request.
struct TagAbsent {};

/// The tag is removed from the field before this request; it comes back after that time, or never.
struct TagLeaves {
  std::optional<std::chrono::milliseconds> returnAfter;
};

/// The tag's answer arrives with a wrong checksum.
struct AirChecksum {};

/// The reader answers with an error of its own: a result code of the USB reader's chip, a status of
/// a TWN4 reader.
struct ReaderError {
  std::uint8_t code;
};

/// The reader itself does not answer.
struct ReaderSilent {};

/// From this request on, for that time or permanently, the mailbox holds a message that is not
/// fetched.
struct MailboxBusy {
  std::optional<std::chrono::milliseconds> duration;
};

/// From this request on the tag does not allow the use of its mailbox.
struct MailboxOff {};

/// From this request on, for that time or permanently, the module fetches nothing from its mailbox.
struct ModuleAsleep {
  std::optional<std::chrono::milliseconds> duration;
};

}  // namespace fieldFaults

using FieldEffect =
    std::variant<fieldFaults::TagAbsent, fieldFaults::TagLeaves, fieldFaults::AirChecksum,
                 fieldFaults::ReaderError, fieldFaults::ReaderSilent, fieldFaults::MailboxBusy,
                 fieldFaults::MailboxOff, fieldFaults::ModuleAsleep>;

/// One ordered fault: what goes wrong, and when.
struct FieldFault {
  FieldEffect effect;
  FaultTrigger trigger;
};

/// One entry of the list of reader faults in a module file. Throws JsonError.
FieldFault readFieldFault(const JsonReader& node);

}  // namespace tessara
