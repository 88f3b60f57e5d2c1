#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "serial/PseudoTerminal.h"

namespace tessara::testing {

using Bytes = std::vector<std::uint8_t>;

/// What the slave does that long after a request has come.
struct Piece {
  std::chrono::milliseconds after{0};
  Bytes bytes;
  bool unplugs = false;  ///< the line is cut after the bytes
};

using Reply = std::vector<Piece>;

/// The length of a request that begins with these bytes; more than there are if it is not known
/// yet.
using RequestLength = std::function<std::size_t(const Bytes& begun)>;

/// That of a Modbus request with function 04 or 17.
std::size_t modbusRequestLength(const Bytes& begun);

/// A slave behind a real pseudo-terminal that sends exactly what a test orders.
class ScriptedSlave {
 public:
  /// Returns the reply to `request` (from its first byte to its last), the `index`th from 0.
  using Script = std::function<Reply(const Bytes& request, std::size_t index)>;

  explicit ScriptedSlave(Script script, RequestLength requestLength = modbusRequestLength);
  ~ScriptedSlave();
  ScriptedSlave(const ScriptedSlave&) = delete;
  ScriptedSlave& operator=(const ScriptedSlave&) = delete;

  /// The port to connect to.
  [[nodiscard]] const std::string& device() const { return port_.device(); }
  /// The port, open beside the program under test.
  [[nodiscard]] int terminal() const { return port_.terminal(); }
  /// The other end of its line.
  [[nodiscard]] int line() const { return port_.line(); }
  [[nodiscard]] PortSettings settings() const { return port_.settings(); }

  [[nodiscard]] std::vector<Bytes> requests() const;
  /// How long the line had been silent before each request after the first.
  [[nodiscard]] std::vector<std::chrono::nanoseconds> silences() const;

  /// Sends `bytes` unasked, and waits until they have arrived at the port.
  void sendUnasked(const Bytes& bytes) const;
  /// Sends a character every few milliseconds.
  void makeNoise() { isNoisy_ = true; }
  /// Cuts the line.
  void unplug();

 private:
  using Clock = std::chrono::steady_clock;

  void run();
  [[nodiscard]] bool requestComes(Clock::time_point until) const;
  void take();
  void send(const Piece& piece);

  Script script_;
  RequestLength requestLength_;
  PseudoTerminal port_;

  mutable std::mutex mutex_;
  std::vector<Bytes> requests_;
  std::vector<std::chrono::nanoseconds> silences_;

  Bytes incoming_;
  std::vector<std::pair<Clock::time_point, Piece>> due_;
  Clock::time_point lastSent_;
  std::atomic<bool> isNoisy_ = false;
  std::atomic<bool> isUnplugged_ = false;
  std::atomic<bool> isEnding_ = false;
  std::thread thread_;
};

/// The same reply to every request.
inline ScriptedSlave::Script always(const Bytes& bytes) {
  return [bytes](const Bytes&, std::size_t) {
    return Reply{{std::chrono::milliseconds(0), bytes}};
  };
}

/// One reply after the other; the last one for all further requests.
inline ScriptedSlave::Script inTurn(std::vector<Reply> replies) {
  return [replies = std::move(replies)](const Bytes&, std::size_t index) {
    return index < replies.size() ? replies[index] : replies.back();
  };
}

/// `bytes` followed by the checksum of Modbus RTU.
Bytes framed(Bytes bytes);

/// The answer from `address` to function 04.
Bytes registersAnswer(std::uint8_t address, const std::vector<std::uint16_t>& words);

/// The answer from `address` to function 17: server id 01, running, then `words`.
Bytes identificationAnswer(std::uint8_t address, const std::vector<std::uint16_t>& words);

}  // namespace tessara::testing
