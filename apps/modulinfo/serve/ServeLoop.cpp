#include "serve/ServeLoop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
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
  while (!isEnded_) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void ServeLoop::runFor(std::chrono::milliseconds duration) {
  bool isOver = false;
  QTimer timer;
  timer.setTimerType(Qt::PreciseTimer);
  timer.setSingleShot(true);
  timer.callOnTimeout([&isOver] { isOver = true; });
  timer.start(duration);
  while (!isOver && !isEnded_) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

}  // namespace tessara
