#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <variant>
#include <vector>

#include "simulator/ModbusCodec.h"

namespace tessara {

/// How a module misbehaves. Several faults may fall on one request; they are then applied in the
/// order of FaultEffect, from the contents of the frame to its time on the line.
namespace faults {

/// The request is refused with this exception code, 1 to 255.
struct ExceptionReply {
  std::uint8_t code;
};

/// The answer carries another address.
struct WrongAddress {
  std::uint8_t address;
};

/// The answer's checksum is wrong.
struct BadChecksum {};

/// Only the first `bytes` bytes of the answer are sent.
struct CutOff {
  std::size_t bytes;
};

/// The port is pulled out once the first `bytes` bytes of the answer have been read by the client:
/// 0 while the client waits, without a value after the whole answer. With `replugAfter` the port
/// comes back after that time, with 0 before any client can notice, without it never by itself.
struct Unplug {
  std::optional<std::size_t> bytes;
  std::optional<std::chrono::milliseconds> replugAfter;
};

/// The request is sent back before the answer, as by an adapter that hears itself.
struct Echo {};

/// These bytes are sent before everything else.
struct Noise {
  Bytes bytes;
};

/// The answer is sent that much later.
struct LateReply {
  std::chrono::milliseconds delay;
};

/// Nothing is sent.
struct NoReply {};

/// The nth request, counted from 1.
struct At {
  std::uint64_t request;
};

/// Each nth request: 1 is every request, 2 the second, the fourth and so on.
struct Every {
  std::uint64_t requests;
};

/// Each request with that probability, 0 to 1. The same seed gives the same sequence.
struct ByChance {
  double probability;
  std::uint64_t seed;
};

}  // namespace faults

using FaultEffect =
    std::variant<faults::ExceptionReply, faults::WrongAddress, faults::BadChecksum, faults::CutOff,
                 faults::Unplug, faults::Echo, faults::Noise, faults::LateReply, faults::NoReply>;
using FaultTrigger = std::variant<faults::At, faults::Every, faults::ByChance>;

/// One ordered fault: what goes wrong, and when.
struct Fault {
  FaultEffect effect;
  FaultTrigger trigger;
};

/// Throws std::invalid_argument for an impossible fault: a request number or step of 0, a
/// probability outside 0 to 1, exception code 0, a cut that leaves nothing, noise without bytes.
void checkFault(const Fault& fault);

/// A part of an answer that follows the previous one after a pause.
struct SimulatedPiece {
  std::chrono::milliseconds pause{0};
  Bytes bytes;
};

/// What a module sends in answer to one request, and what else happens then.
struct SimulatedAnswer {
  Bytes bytes;  ///< nothing is sent if empty
  std::chrono::milliseconds delay{0};
  std::optional<faults::Unplug> unplug{};
  std::vector<SimulatedPiece> more{};  ///< what follows the bytes
};

/// Throws what checkFault throws for its trigger.
void checkTrigger(const FaultTrigger& trigger);

/// Decides for each request in turn whether a fault falls on it.
class FaultClock {
 public:
  explicit FaultClock(const FaultTrigger& trigger);

  /// Call it once for each request; requests are counted from 1.
  bool fallsOn(std::uint64_t request);

 private:
  FaultTrigger trigger_;
  std::mt19937_64 random_;  // used by faults::ByChance only
};

/// Decides for each request in turn which of the ordered faults fall on it.
class FaultPlan {
 public:
  /// Throws what checkFault throws.
  explicit FaultPlan(std::vector<Fault> faults = {});

  /// Counts one request and spoils its answer accordingly. `answer` is a whole frame, `request` the
  /// request's data without checksum.
  SimulatedAnswer spoil(const MasterRequest& request, Bytes answer);

 private:
  struct Ordered {
    FaultEffect effect;
    FaultClock clock;
  };

  std::vector<Ordered> ordered_;  // in the order of their effects
  std::uint64_t requests_ = 0;
};

}  // namespace tessara
