#pragma once

#include <optional>

#include "drivers/hart/HartFrame.h"
#include "simulator/Fault.h"
#include "simulator/hart/HartEffect.h"

namespace tessara {

/// An answer before it is sent, to which effects are applied.
class HartDraft {
 public:
  /// An intact answer to `request`, with that many preambles.
  HartDraft(HartFrame request, HartFrame answer, std::size_t preambles);

  /// The order of effects does not matter, except for two of the same kind.
  void apply(const HartEffect& effect);

  /// What goes on the line.
  [[nodiscard]] SimulatedAnswer finished() const;

 private:
  void change(const faults::ResponseCode& fault);
  void change(const faults::CommunicationError& fault);
  void change(const faults::DelayedAnswer& fault);
  void change(const faults::ColdStart& fault);
  void change(const faults::WrongCommand& fault);
  void change(const faults::WrongAddress& fault);
  void change(const faults::BadChecksum& fault);
  void change(const faults::Preambles& fault);
  void change(const faults::CutOff& fault);
  void change(const faults::Gap& fault);
  void change(const faults::Unplug& fault);
  void change(const faults::Echo& fault);
  void change(const faults::OtherMaster& fault);
  void change(const faults::BurstFrame& fault);
  void change(const faults::Noise& fault);
  void change(const faults::TrailingNoise& fault);
  void change(const faults::LateReply& fault);
  void change(const faults::NoReply& fault);

  [[nodiscard]] Bytes answerBytes() const;

  HartFrame request_;
  HartFrame answer_;
  std::size_t preambles_;
  std::uint8_t checkByteFlips_ = 0;
  std::optional<std::size_t> kept_;  // bytes of the answer that are sent
  std::optional<faults::Gap> gap_;
  std::optional<faults::Unplug> unplug_;
  Bytes echo_;
  Bytes noise_;
  Bytes otherTraffic_;
  Bytes trailing_;
  std::chrono::milliseconds delay_{0};
  bool isSilent_ = false;
};

}  // namespace tessara
