#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include <modbus.h>

#include "drivers/modbus/ModbusCodec.h"
#include "drivers/modbus/ModbusFault.h"
#include "serial/SerialLine.h"

namespace tessara {

/// How long the link waits for what. The silences between frames are not a matter of choice: they
/// follow from the rate.
struct ModbusTimings {
  /// From the end of a request to the first character of its answer. A module that answers that it
  /// is busy is asked again for this long.
  std::chrono::milliseconds answer{500};
  /// What an answer may take beyond the time of its characters: pauses of USB adapters and of a
  /// busy system.
  std::chrono::milliseconds pauses{200};
  /// After a damaged answer the line counts as quiet when nothing has come for this long.
  std::chrono::milliseconds settling{50};
  /// What a busy module is left before it is asked again.
  std::chrono::milliseconds busyPause{50};
  /// A line on which something comes all the time is given up after this.
  std::chrono::milliseconds noise{500};
};

/// A Modbus RTU line: 8 data bits, even parity, one stop bit, one request at a time.
///
/// Before each request the line has been silent for 3.5 characters, counted from the last
/// character that came or went, and the input is empty. A request without an undamaged answer is
/// sent once more after the line has settled. A request that the module answers with exception 5 or
/// 6 is sent again until the time for an answer is over.
///
/// An answer that was given up may still come, and nothing in it shows that it is late. So the link
/// keeps count of the answers that it is owed, and the next request waits until they have come
/// or can no longer come: as long again as the exchange that owes them has taken, since a module
/// that answered one request so late may have kept the other waiting as long. The count outlives a
/// reconnection to the same port at the same rate.
class ModbusLink {
 public:
  explicit ModbusLink(const ModbusTimings& timings) : timings_(timings) {}

  /// Opens and configures the port. Throws PortError, also if `rate` is below minLineRate; the link
  /// is closed then.
  void open(const std::string& device, std::int32_t rate);
  /// Closes the port; harmless when none is open.
  void close() noexcept;

  /// Sends `request` and returns the data of its answer, which are valid until the next call.
  /// Throws ModbusFault.
  std::span<const std::uint8_t> ask(const ModbusRequest& request);

 private:
  using Clock = SerialLine::Clock;

  std::span<const std::uint8_t> askUntilAnswered(const ModbusRequest& request);
  std::span<const std::uint8_t> exchange(const ModbusRequest& request,
                                         std::chrono::nanoseconds silence);
  void send(const ModbusRequest& request);
  std::span<const std::uint8_t> receive(const ModbusRequest& request);
  void awaitSilence(std::chrono::nanoseconds silence);
  void awaitOwedAnswers();
  void noteOwedAnswers(Clock::time_point begun);
  [[nodiscard]] std::chrono::nanoseconds characters(std::size_t count) const;

  ModbusTimings timings_;
  std::optional<SerialLine> line_;
  std::unique_ptr<modbus_t, decltype(&modbus_free)> context_{nullptr, &modbus_free};
  std::array<std::uint8_t, MODBUS_MAX_ADU_LENGTH> buffer_{};

  std::string device_;
  std::int32_t rate_ = 0;
  Clock::time_point lastTraffic_;  ///< when the last character came, or goes out
  bool isTroubled_ = false;        ///< the last answer was damaged, more of it may follow
  int owedAnswers_ = 0;
  Clock::time_point owedUntil_;
};

}  // namespace tessara
