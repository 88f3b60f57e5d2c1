#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "drivers/hart/HartExchange.h"
#include "drivers/hart/HartFault.h"
#include "drivers/hart/HartParser.h"
#include "drivers/hart/HartPort.h"

namespace tessara {

/// The primary master on a HART line, one request at a time.
///
/// Before each request the master waits for its turn: after opening the port until the line was
/// quiet for RT1, later as the frames on the line demand. A request is sent three times at most
/// until an undamaged answer reports that it was received correctly. While the module announces a
/// delayed answer, the identical request is sent again.
///
/// Everything that comes is examined: echoes, burst frames and the traffic of the other master are
/// skipped. An answer that arrives after its request has been repeated may be followed by others;
/// an identical request waits until these have arrived or can no longer arrive.
class HartLink {
 public:
  explicit HartLink(const HartOptions& options) : timings_(options.timings), port_(options) {}

  /// Opens and configures the port. Throws PortError; the link is closed then.
  void open(const std::string& device);
  /// Closes the port; harmless when none is open.
  void close() noexcept;

  /// Sends `request` after that many preambles and returns its answer, which is a success or a
  /// warning. Throws HartFault.
  HartFrame ask(const HartFrame& request, std::size_t preambles);

 private:
  using Clock = HartPort::Clock;

  /// Answers that may still arrive, though one to the same request has arrived.
  struct Owed {
    HartFrame request;
    int count = 0;
    Clock::time_point until;
  };

  HartFrame askUntilHeard(const HartFrame& request, std::size_t preambles,
                          Clock::time_point deadline);
  HartFrame exchange(const HartFrame& request, std::size_t preambles, Clock::time_point deadline);
  void awaitTurn(const HartFrame& request, Clock::time_point deadline);
  bool passFrames(const HartFrame& request);
  HartFrame receive(const HartFrame& request, Clock::time_point sent, Clock::time_point deadline);
  [[nodiscard]] Clock::time_point nextTurn() const;
  [[nodiscard]] bool isOwed(const HartFrame& request) const;
  [[nodiscard]] bool isOccupied(Clock::time_point turn) const;
  bool hear(Clock::time_point deadline);
  void note(const HartReception& reception);

  HartTimings timings_;
  HartPort port_;
  HartParser parser_;
  Clock::time_point lastByte_;
  Clock::time_point turn_;   ///< when this master may send, if nothing comes before
  bool isTracking_ = false;  ///< the traffic since the last request is known
  bool isBursting_ = false;  ///< a module in burst mode was detected
  std::optional<Owed> owed_;
};

}  // namespace tessara
