#pragma once

#include <chrono>
#include <functional>
#include <memory>

#include "platform/EventLoop.h"

namespace tessara::testing {

/// A loop that nobody turns.
class StillLoop final : public EventLoop {
 public:
  void yield() override {}
  void sleep(std::chrono::milliseconds /*duration*/) override {}
  std::unique_ptr<PeriodicTimer> createTimer(std::chrono::milliseconds /*interval*/,
                                             std::function<void()> /*tick*/) override {
    return nullptr;
  }
  std::unique_ptr<ModalRun> createModalRun() override { return nullptr; }
};

}  // namespace tessara::testing
