#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "drivers/nfc/NfcFault.h"
#include "drivers/nfc/ReaderLink.h"
#include "serial/SerialLine.h"

namespace tessara {

/// Modules in the field of a TWN4 reader on a serial port.
class Twn4Link final : public ReaderLink {
 public:
  /// Opens the port. Its rate makes no difference to the reader, which is a USB device: a rate that
  /// the port cannot have, or that would block the caller for minutes, is replaced by a usual one.
  /// `answerTime` is the time limit for each answer of the reader. Throws PortError.
  Twn4Link(const std::string& device, std::int32_t rate, std::chrono::milliseconds answerTime);
  ~Twn4Link() override;

  /// Throws NfcFault, also: ReaderRefusal if the device on the port is not a TWN4 reader with
  /// Simple Protocol.
  TagUid selectTag() override;
  Bytes exchange(const AirRequest& request) override;

 private:
  using Clock = SerialLine::Clock;

  void requireSimpleProtocol();
  std::optional<TagUid> search();
  Bytes ask(std::span<const std::uint8_t> request);
  void send(std::span<const std::uint8_t> request);
  std::string lineBefore(Clock::time_point deadline);
  [[nodiscard]] NfcFault noAnswer() const;

  std::chrono::milliseconds answerTime_;
  SerialLine line_;
  std::string input_;
  bool isAnswering_ = false;  // at the last request
};

}  // namespace tessara
