#pragma once

#include <functional>
#include <memory>

#include "asio/AsioEventLoop.h"

namespace tessara {

/// A function that runs once in one of the next turns of a loop, however often it is requested
/// until then.
class DeferredCall {
 public:
  /// `loop` has to outlive the call.
  DeferredCall(AsioEventLoop& loop, std::function<void()> function);
  DeferredCall(const DeferredCall&) = delete;
  DeferredCall& operator=(const DeferredCall&) = delete;
  /// Drops what was requested.
  ~DeferredCall();

  void request();

 private:
  struct State {
    std::function<void()> function;
    bool isRequested = false;
  };

  AsioEventLoop& loop_;
  std::shared_ptr<State> state_;
};

}  // namespace tessara
