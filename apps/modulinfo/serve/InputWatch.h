#pragma once

#include <functional>
#include <memory>

#include "asio/AsioEventLoop.h"

namespace tessara {

/// Calls back whenever there is something to read, until it is destroyed: bytes, or the end.
///
/// The input is left as it is. It may be shared with other programs, such as a terminal is, and
/// must not become non-blocking for them.
class InputWatch {
 public:
  /// `loop` has to outlive the watch, and `input` must stay open. Throws std::system_error if the
  /// system cannot watch it.
  InputWatch(AsioEventLoop& loop, int input, std::function<void()> readable);
  InputWatch(const InputWatch&) = delete;
  InputWatch& operator=(const InputWatch&) = delete;
  ~InputWatch();

 private:
  class Watching;
  std::shared_ptr<Watching> watching_;
};

}  // namespace tessara
