#include "qt/QtEventLoop.h"

#include <QCoreApplication>
#include <QDebug>
#include <QEventLoop>
#include <QTimer>
#include <thread>
#include <utility>

namespace tessara {
namespace {

class QtPeriodicTimer : public PeriodicTimer {
 public:
  QtPeriodicTimer(std::chrono::milliseconds interval, std::function<void()> tick) {
    timer_.setTimerType(Qt::PreciseTimer);
    timer_.setInterval(interval);
    timer_.callOnTimeout(std::move(tick));
  }

  void setEnabled(bool enabled) override {
    if (enabled) {
      timer_.start();
    } else {
      timer_.stop();
    }
  }

 private:
  QTimer timer_;
};

class QtModalRun : public ModalRun {
 public:
  void run() override {
    if (!ended_) {
      loop_.exec();
    }
  }
  void end() override {
    ended_ = true;
    loop_.quit();
  }

 private:
  QEventLoop loop_;
  bool ended_ = false;
};

}  // namespace

void QtEventLoop::yield() {
  QCoreApplication::processEvents();
}

void QtEventLoop::sleep(std::chrono::milliseconds duration) {
  std::this_thread::sleep_for(duration);
}

std::unique_ptr<PeriodicTimer> QtEventLoop::createTimer(std::chrono::milliseconds interval,
                                                        std::function<void()> tick) {
  return std::make_unique<QtPeriodicTimer>(interval, [this, tick = std::move(tick)] {
    try {
      tick();
    } catch (const std::exception& error) {
      if (tickFailed) {
        tickFailed(error);
      } else {
        qWarning("%s", error.what());
      }
    }
  });
}

std::unique_ptr<ModalRun> QtEventLoop::createModalRun() {
  return std::make_unique<QtModalRun>();
}

}  // namespace tessara
