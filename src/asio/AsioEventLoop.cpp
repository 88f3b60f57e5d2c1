#include "asio/AsioEventLoop.h"

#include <cstdint>
#include <iostream>
#include <thread>
#include <utility>

#include <asio/error_code.hpp>
#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/post.hpp>
#include <asio/steady_timer.hpp>

namespace tessara {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

class AsioPeriodicTimer final : public PeriodicTimer {
 public:
  AsioPeriodicTimer(asio::io_context& context, milliseconds interval, std::function<void()> tick)
      : ticking_(std::make_shared<Ticking>(context, interval, std::move(tick))) {}
  AsioPeriodicTimer(const AsioPeriodicTimer&) = delete;
  AsioPeriodicTimer& operator=(const AsioPeriodicTimer&) = delete;
  ~AsioPeriodicTimer() override { ticking_->stop(); }

  void setEnabled(bool enabled) override {
    ticking_->stop();
    if (enabled) ticking_->start();
  }

 private:
  /// Outlives the timer while a tick runs that destroys it.
  class Ticking : public std::enable_shared_from_this<Ticking> {
   public:
    Ticking(asio::io_context& context, milliseconds interval, std::function<void()> tick)
        : timer_(context), interval_(interval), tick_(std::move(tick)) {}

    void stop() {
      ++run_;
      timer_.cancel();
    }
    void start() { waitUntil(steady_clock::now() + interval_); }

   private:
    void waitUntil(steady_clock::time_point due) {
      timer_.expires_at(due);
      timer_.async_wait([self = shared_from_this(), run = run_, due](asio::error_code /*error*/) {
        if (run == self->run_) self->tick(due);
      });
    }

    /// The next tick is waited for when this one has ended: a tick that yields is not run again in
    /// its own middle, and one that lasts longer than the interval leaves time for other events.
    void tick(steady_clock::time_point due) {
      const std::uint64_t run = run_;
      tick_();
      if (run != run_) return;
      const auto now = steady_clock::now();
      waitUntil(due + interval_ > now ? due + interval_ : now + interval_);
    }

    asio::steady_timer timer_;
    milliseconds interval_;
    std::function<void()> tick_;
    /// Changes whenever the timer is stopped, so that a tick that is already due is dropped.
    std::uint64_t run_ = 0;
  };

  std::shared_ptr<Ticking> ticking_;
};

class AsioModalRun final : public ModalRun {
 public:
  explicit AsioModalRun(AsioEventLoop& loop) : loop_(loop) {}

  void run() override {
    while (!ended_) loop_.turn();
  }
  void end() override { ended_ = true; }

 private:
  AsioEventLoop& loop_;
  bool ended_ = false;
};

}  // namespace

struct AsioEventLoop::Events {
  asio::io_context context;
  /// Lets a turn wait while nothing is pending.
  asio::executor_work_guard<asio::io_context::executor_type> work{context.get_executor()};
};

AsioEventLoop::AsioEventLoop() : events_(std::make_unique<Events>()) {}
AsioEventLoop::~AsioEventLoop() = default;

asio::io_context& AsioEventLoop::context() {
  return events_->context;
}

void AsioEventLoop::yield() {
  // What is due is found on the way to the first mark and handled on the way to the second. Events
  // that come without end do not hold the yield up.
  for (int mark = 0; mark < 2; ++mark) {
    const auto isReached = std::make_shared<bool>(false);
    asio::post(context(), [isReached] { *isReached = true; });
    while (!*isReached) context().poll_one();
  }
}

void AsioEventLoop::sleep(milliseconds duration) {
  std::this_thread::sleep_for(duration);
}

std::unique_ptr<PeriodicTimer> AsioEventLoop::createTimer(milliseconds interval,
                                                          std::function<void()> tick) {
  return std::make_unique<AsioPeriodicTimer>(context(), interval, [this, tick = std::move(tick)] {
    try {
      tick();
    } catch (const std::exception& error) {
      if (tickFailed) {
        tickFailed(error);
      } else {
        std::cerr << error.what() << '\n';
      }
    }
  });
}

std::unique_ptr<ModalRun> AsioEventLoop::createModalRun() {
  return std::make_unique<AsioModalRun>(*this);
}

void AsioEventLoop::turn() {
  context().run_one();
}

void AsioEventLoop::post(std::function<void()> event) {
  asio::post(context(), std::move(event));
}

}  // namespace tessara
