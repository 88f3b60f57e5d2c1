#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <thread>
#include <utility>

#include "platform/EventLoop.h"

namespace tessara::testing {

/// A loop whose timer ticks when the test says so: four seconds take no time.
class SteppedLoop final : public EventLoop {
 public:
  void yield() override {}
  void sleep(std::chrono::milliseconds duration) override { std::this_thread::sleep_for(duration); }
  std::unique_ptr<PeriodicTimer> createTimer(std::chrono::milliseconds /*interval*/,
                                             std::function<void()> tick) override {
    tick_ = std::move(tick);
    return std::make_unique<Timer>(*this);
  }
  std::unique_ptr<ModalRun> createModalRun() override { return nullptr; }

  [[nodiscard]] bool isTicking() const { return isTicking_; }

  /// Lets the interval pass; false if the timer is off.
  bool tick() {
    if (!isTicking_) return false;
    tick_();
    return true;
  }

 private:
  class Timer final : public PeriodicTimer {
   public:
    explicit Timer(SteppedLoop& loop) : loop_(loop) {}
    void setEnabled(bool enabled) override { loop_.isTicking_ = enabled; }

   private:
    SteppedLoop& loop_;
  };

  std::function<void()> tick_;
  bool isTicking_ = false;
};

}  // namespace tessara::testing
