#pragma once

#include <chrono>
#include <memory>
#include <span>
#include <string>

#include "drivers/nfc/Cr95Hf.h"
#include "drivers/nfc/HidDevice.h"
#include "drivers/nfc/NfcFault.h"

namespace tessara {

/// An open USB reader as a board that answers commands, one at a time. Every function throws
/// NfcFault: ReaderSilent if no answer comes in time, NoReader, Damage.
class UsbReader {
 public:
  UsbReader(std::unique_ptr<HidDevice> device, std::chrono::milliseconds answerTime)
      : device_(std::move(device)), answerTime_(answerTime) {}

  [[nodiscard]] std::string name() const { return device_->name(); }

  /// Checks that the chip answers. The board answers in the order of the requests, so whatever
  /// comes before this answer belongs to an earlier request and is discarded.
  cr95hf::Answer echo();

  /// The revision of the board's own processor.
  cr95hf::Answer revision();

  /// The chip's answer to a command.
  cr95hf::Answer command(std::span<const std::uint8_t> command);

 private:
  using Clock = std::chrono::steady_clock;

  cr95hf::Answer ask(cr95hf::ReportId id, std::span<const std::uint8_t> request);
  cr95hf::Answer answerBefore(Clock::time_point deadline);
  void send(cr95hf::ReportId id, std::span<const std::uint8_t> request);
  [[nodiscard]] NfcFault noAnswer() const;

  std::unique_ptr<HidDevice> device_;
  std::chrono::milliseconds answerTime_;
};

}  // namespace tessara
