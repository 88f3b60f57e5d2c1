#include "simulator/LinePort.h"

#include <csignal>
#include <future>
#include <utility>

#include <asio/post.hpp>

#include "simulator/PortLoop.h"

namespace tessara {

namespace {

/// Signals are left to the program's own threads.
void blockSignals() {
  ::sigset_t all;
  ::sigfillset(&all);
  ::pthread_sigmask(SIG_SETMASK, &all, nullptr);
}

}  // namespace

LinePort::LinePort(std::unique_ptr<SimulatedLine> line, SimulatedPortOptions options)
    : loop_(std::make_unique<PortLoop>(std::move(line), std::move(options))), thread_([this] {
        blockSignals();
        loop_->context().run();
      }) {}

LinePort::~LinePort() {
  loop_->context().stop();
  thread_.join();
}

std::string LinePort::device() const {
  std::string device;
  onLine([this, &device] { device = loop_->device(); });
  return device;
}

void LinePort::unplug() {
  onLine([this] { loop_->unplug(); });
}

void LinePort::plug() {
  onLine([this] { loop_->plug(); });
}

void LinePort::onLine(const std::function<void()>& action) const {
  asio::io_context& context = loop_->context();
  if (context.get_executor().running_in_this_thread()) return action();
  // Shared, since the caller may have its result before the task has returned.
  auto task = std::make_shared<std::packaged_task<void()>>(action);
  asio::post(context, [task] { (*task)(); });
  task->get_future().get();
}

}  // namespace tessara
