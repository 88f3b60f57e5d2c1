#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "asio/AsioEventLoop.h"
#include "serve/Turns.h"

namespace tessara {

/// The event loop of a control that a client drives: keeps account of the turns, and ends.
class ServeLoop final : public EventLoop {
 public:
  /// This many yields in a row, with nothing else between them, are a wait that only another
  /// request can end. Workflows make few.
  static constexpr int idleYields = 1000;

  /// Both must outlive the loop.
  ServeLoop(AsioEventLoop& loop, Turns& turns) : loop_(loop), turns_(turns) {}

  void yield() override;
  void sleep(std::chrono::milliseconds duration) override { loop_.sleep(duration); }
  std::unique_ptr<PeriodicTimer> createTimer(std::chrono::milliseconds interval,
                                             std::function<void()> tick) override {
    return loop_.createTimer(interval, std::move(tick));
  }
  std::unique_ptr<ModalRun> createModalRun() override { return loop_.createModalRun(); }

  /// Handles events, and waits for them, until end() is called.
  void run();
  /// The same, but no longer than `duration`.
  void runFor(std::chrono::milliseconds duration);
  void end() { isEnded_ = true; }
  [[nodiscard]] bool isEnded() const { return isEnded_; }

  /// Notes that the control has done something: it is not idling in its yields.
  void noteActivity() { yieldsInARow_ = 0; }
  /// Called in each yield of a control that idles in them.
  std::function<void()> idles;

 private:
  AsioEventLoop& loop_;
  Turns& turns_;
  bool isEnded_ = false;
  int yieldsInARow_ = 0;
};

}  // namespace tessara
