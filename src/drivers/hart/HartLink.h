#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "drivers/hart/HartExchange.h"
#include "drivers/hart/HartFault.h"
#include "drivers/hart/HartParser.h"
#include "drivers/hart/HartPort.h"

namespace tessara {

/// How a link works with its modem.
struct HartOptions {
  HartTimings timings{};
  HartCarrier carrier = HartCarrier::Rts;
  ModemLineCall modemLineCall = systemModemLineCall;
};

/// The primary master on a HART line, one request at a time.
///
/// Before each request the line is this master's to use: behind the opening of the port after it
/// was quiet for RT1, otherwise when the frames on it say so. A request without an undamaged answer
/// that says that it was well received is sent again, up to three times. While the station
/// announces a delayed answer, the identical request is sent again.
///
/// Everything that comes is looked at: echoes, burst frames and what is between the other master
/// and a station are passed over. An answer that comes after its request has been repeated may be
/// followed by others; an identical request waits until these have come or can no longer come.
class HartLink {
 public:
  explicit HartLink(HartOptions options);

  /// Takes the port and sets it up. Throws PortError; the link is closed then.
  void open(const std::string& device);
  /// Hands the port back; harmless when there is none.
  void close() noexcept;

  /// Sends `request` behind that many preambles, and gives its answer, which is a success or a
  /// warning. Throws HartFault.
  HartFrame ask(const HartFrame& request, std::size_t preambles);

 private:
  using Clock = HartPort::Clock;

  /// Answers that may still come, though an answer to the same request has.
  struct Owed {
    HartFrame request;
    int count = 0;
    Clock::time_point until;
  };

  HartFrame askUntilHeard(const HartFrame& request, std::size_t preambles);
  HartFrame exchange(const HartFrame& request, std::size_t preambles);
  void awaitTurn(const HartFrame& request);
  bool passFrames(const HartFrame& request);
  HartFrame receive(const HartFrame& request, Clock::time_point sent);
  [[nodiscard]] Clock::time_point nextTurn() const;
  [[nodiscard]] bool isOwed(const HartFrame& request) const;
  [[nodiscard]] bool isOccupied(Clock::time_point turn) const;
  bool hear(Clock::time_point deadline);
  void note(const HartReception& reception);

  HartTimings timings_;
  HartPort port_;
  HartParser parser_;
  Clock::time_point lastByte_;
  Clock::time_point turn_;   ///< when the line is this master's to use, if nothing comes before
  bool isTracking_ = false;  ///< what goes on on the line is known
  bool isBursting_ = false;  ///< a station in burst mode has been heard
  std::optional<Owed> owed_;
};

}  // namespace tessara
