#pragma once

#include <exception>
#include <functional>
#include <memory>

#include "platform/EventLoop.h"

namespace asio {
class io_context;
}

namespace tessara {

/// Time and turns from Asio, for programs without windows. Lives on one thread; its timers tick in
/// a yield, in a modal run and in turn().
class AsioEventLoop final : public EventLoop {
 public:
  AsioEventLoop();
  ~AsioEventLoop() override;

  void yield() override;
  void sleep(std::chrono::milliseconds duration) override;
  /// The timer must not outlive the loop. An interval of 0 ticks in every turn.
  std::unique_ptr<PeriodicTimer> createTimer(std::chrono::milliseconds interval,
                                             std::function<void()> tick) override;
  std::unique_ptr<ModalRun> createModalRun() override;

  /// Waits for an event and handles it.
  void turn();
  /// Handles `event` in one of the next turns, after those that are already pending.
  void post(std::function<void()> event);

  /// Called with what a tick has thrown, since a timer has no caller that could catch it. The timer
  /// goes on. Without a handler the message goes to standard error.
  std::function<void(const std::exception&)> tickFailed;

  /// For what waits for files and lines on this loop.
  [[nodiscard]] asio::io_context& context();

 private:
  struct Events;
  std::unique_ptr<Events> events_;
};

}  // namespace tessara
