#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include <asio/io_context.hpp>
#include <asio/posix/stream_descriptor.hpp>

#include "drivers/PortLock.h"
#include "drivers/nfc/ReaderLink.h"

namespace tessara {

/// Modules in the field of a TWN4 reader on a serial port.
class Twn4Link final : public ReaderLink {
 public:
  /// Takes the port. Its rate makes no difference to the reader, which is a USB device: a rate that
  /// the system has none of is replaced by a usual one. `answerTime` is what the reader has for an
  /// answer. Throws PortError.
  Twn4Link(const std::string& device, std::int32_t rate, std::chrono::milliseconds answerTime);
  ~Twn4Link() override;

  /// Throws NfcFault, also: ReaderRefusal if what is on the port is no TWN4 reader with Simple
  /// Protocol.
  TagUid selectTag() override;
  Bytes exchange(const AirRequest& request) override;

 private:
  using Clock = std::chrono::steady_clock;

  void requireSimpleProtocol();
  std::optional<TagUid> search();
  Bytes ask(std::span<const std::uint8_t> request);
  void send(std::span<const std::uint8_t> request);
  std::string lineBefore(Clock::time_point deadline);
  template <class Start>
  void runBefore(Clock::time_point deadline, Start start);

  std::chrono::milliseconds answerTime_;
  PortLock port_;
  asio::io_context context_{1};
  asio::posix::stream_descriptor stream_;
  std::string input_;
  bool isAnswering_ = false;  // at the last request
};

}  // namespace tessara
