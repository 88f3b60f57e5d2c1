#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <variant>

#include "simulator/Fault.h"

namespace tessara {

/// How a module behind a HART modem, or the line to it, misbehaves in addition to the faults of any
/// module.
namespace faults {

/// The request is answered with this response code, 0 to 127. An error carries no data.
struct ResponseCode {
  std::uint8_t code;
};

/// The module reports that it received the request badly: a summary of bits 0 to 6.
struct CommunicationError {
  std::uint8_t bits;
};

/// The answer takes long: this request is answered "delayed answer started", and the next
/// `requests` identical ones "delayed answer running".
struct DelayedAnswer {
  std::uint64_t requests;
};

/// The answer reports that the module has just started.
struct ColdStart {};

/// The answer is to another command.
struct WrongCommand {
  std::uint8_t command;
};

/// The answer has this many preambles; a master does not detect fewer than two.
struct Preambles {
  std::size_t count;
};

/// The line falls silent for a while after the first `after` bytes of the answer.
struct Gap {
  std::size_t after;
  std::chrono::milliseconds pause;
};

/// The secondary master and the module exchange a request and an answer before this answer.
struct OtherMaster {};

/// A burst frame comes before the answer, to either master.
struct BurstFrame {
  bool isToPrimaryMaster;
};

/// These bytes are sent after everything else.
struct TrailingNoise {
  Bytes bytes;
};

}  // namespace faults

/// What can go wrong with one answer. faults::WrongAddress sets the last byte of the address;
/// faults::CutOff and faults::Unplug count the preambles.
using HartEffect =
    std::variant<faults::ResponseCode, faults::CommunicationError, faults::DelayedAnswer,
                 faults::ColdStart, faults::WrongCommand, faults::WrongAddress, faults::BadChecksum,
                 faults::Preambles, faults::CutOff, faults::Gap, faults::Unplug, faults::Echo,
                 faults::OtherMaster, faults::BurstFrame, faults::Noise, faults::TrailingNoise,
                 faults::LateReply, faults::NoReply>;

/// One ordered fault: what goes wrong, and when. Several may fall on one request.
struct HartMisbehaviour {
  HartEffect effect;
  FaultTrigger trigger;
};

}  // namespace tessara
