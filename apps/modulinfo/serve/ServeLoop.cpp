#include "serve/ServeLoop.h"

#include <algorithm>

namespace tessara {

void ServeLoop::yield() {
  {
    const Turns::Turn turn(turns_, Turns::Kind::Yield);
    loop_.yield();
  }
  yieldsInARow_ = std::min(yieldsInARow_ + 1, idleYields);
  if (yieldsInARow_ == idleYields && idles) idles();
}

void ServeLoop::run() {
  while (!isEnded_) loop_.turn();
}

void ServeLoop::runFor(std::chrono::milliseconds duration) {
  bool isOver = false;
  const auto timer = loop_.createTimer(duration, [&isOver] { isOver = true; });
  timer->setEnabled(true);
  while (!isOver && !isEnded_) loop_.turn();
}

}  // namespace tessara
