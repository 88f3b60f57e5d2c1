#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tessara {

/// A timer that runs its handler on the control's thread, again and again while it is enabled.
class PeriodicTimer {
 public:
  PeriodicTimer() = default;
  PeriodicTimer(const PeriodicTimer&) = delete;
  PeriodicTimer& operator=(const PeriodicTimer&) = delete;
  virtual ~PeriodicTimer() = default;

  /// Enabling starts a whole interval; disabling drops a tick that has not run yet.
  virtual void setEnabled(bool enabled) = 0;
};

/// Handles events while a modal form is open.
class ModalRun {
 public:
  ModalRun() = default;
  ModalRun(const ModalRun&) = delete;
  ModalRun& operator=(const ModalRun&) = delete;
  virtual ~ModalRun() = default;

  /// Handles events, and blocks between them, until end() is called in one of them. Returns at once
  /// if it was called before, and without it when the program is about to quit. Runs may nest; an
  /// outer one returns after the inner.
  virtual void run() = 0;
  virtual void end() = 0;
};

/// Time and turns, as the control needs them. One thread, that of the host's user interface.
class EventLoop {
 public:
  EventLoop() = default;
  EventLoop(const EventLoop&) = delete;
  EventLoop& operator=(const EventLoop&) = delete;
  virtual ~EventLoop() = default;

  /// Handles the events that are pending now, and returns. Handlers may enter the control.
  virtual void yield() = 0;

  /// Blocks the thread for that long; no event is handled.
  virtual void sleep(std::chrono::milliseconds duration) = 0;

  /// A disabled timer with that interval.
  virtual std::unique_ptr<PeriodicTimer> createTimer(std::chrono::milliseconds interval,
                                                     std::function<void()> tick) = 0;

  /// A run that has not started.
  virtual std::unique_ptr<ModalRun> createModalRun() = 0;
};

}  // namespace tessara
