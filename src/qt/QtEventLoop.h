#pragma once

#include <exception>
#include <functional>

#include "platform/EventLoop.h"

namespace tessara {

/// Time and turns from Qt. Needs a QCoreApplication and lives on its thread; the timers tick while
/// an event loop of that thread runs, or in a yield.
class QtEventLoop : public EventLoop {
 public:
  void yield() override;
  void sleep(std::chrono::milliseconds duration) override;
  std::unique_ptr<PeriodicTimer> createTimer(std::chrono::milliseconds interval,
                                             std::function<void()> tick) override;
  std::unique_ptr<ModalRun> createModalRun() override;

  /// Called with what a tick has thrown, since a timer has no caller that could catch it. The timer
  /// goes on. Without a handler the message goes to Qt's log.
  std::function<void(const std::exception&)> tickFailed;
};

}  // namespace tessara
