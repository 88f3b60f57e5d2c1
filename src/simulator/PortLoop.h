#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/posix/stream_descriptor.hpp>

#include "simulator/LinePort.h"
#include "simulator/SimulatedLine.h"
#include "simulator/VirtualPort.h"

namespace tessara {

/// A simulated port on one thread: waits for clients, their bytes and timers, and lets the line
/// answer. Everything but context() belongs to the thread that runs the context.
class PortLoop {
 public:
  /// Plugs the port in. Throws what LinePort's constructor throws.
  PortLoop(std::unique_ptr<SimulatedLine> line, SimulatedPortOptions options);
  ~PortLoop();
  PortLoop(const PortLoop&) = delete;
  PortLoop& operator=(const PortLoop&) = delete;

  asio::io_context& context() { return context_; }

  [[nodiscard]] std::string device() const;
  void plug();
  void unplug();

 private:
  using Clock = std::chrono::steady_clock;

  /// An answer on its way over a paced line.
  struct Transmission {
    SimulatedAnswer answer;
    std::size_t sent = 0;
    Clock::time_point begin;
    std::chrono::nanoseconds character{};
  };

  void install();
  void remove();
  void waitForEvents();
  void receive();
  void take(const Bytes& bytes);
  void waitForSilence();

  /// Determines when the answer begins, and schedules it.
  void prepare(SimulatedAnswer answer);
  void begin(SimulatedAnswer answer, Clock::time_point start);

  /// Sends the rest piece by piece, each when its last character would have arrived.
  void transmit(Transmission transmission);

  /// Continues after the bytes that have been sent.
  void finish(SimulatedAnswer answer);

  void unplugWhenRead(const faults::Unplug& fault, Clock::time_point deadline);
  void replugAfter(std::chrono::milliseconds delay);

  /// Plugs the port in, or tries again after that time if the system has no port left.
  void replug(std::chrono::milliseconds delay);

  /// Runs the action at that time, unless the port is unplugged or plugged in before.
  void at(Clock::time_point time, std::function<void()> action);

  std::unique_ptr<SimulatedLine> line_;
  SimulatedPortOptions options_;
  asio::io_context context_{1};
  asio::executor_work_guard<asio::io_context::executor_type> work_;
  asio::posix::stream_descriptor events_;
  std::optional<VirtualPort> port_;
  std::uint64_t plugging_ = 0;  // how often the port has come and gone
  bool leaving_ = false;        // a fault is about to unplug it; requests are ignored
  std::size_t sending_ = 0;     // answers, or pieces of one, being sent
  Clock::time_point lastByte_;  // when the latest bytes came
  Clock::time_point wireFree_;  // paced: when the wire has carried all bytes so far
};

}  // namespace tessara
