#include "simulator/SimulatedPort.h"

#include <csignal>
#include <future>
#include <utility>

#include <asio/post.hpp>

#include "simulator/PortLoop.h"

namespace tessara {

namespace {

/// Signals are for the program's own threads.
void blockSignals() {
  ::sigset_t all;
  ::sigfillset(&all);
  ::pthread_sigmask(SIG_SETMASK, &all, nullptr);
}

}  // namespace

/// Has the action run by the thread that owns everything it touches, and waits for its result.
template <typename Action>
auto SimulatedPort::onLine(Action action) const {
  asio::io_context& context = loop_->context();
  if (context.get_executor().running_in_this_thread()) return action();
  // Shared, since the caller may have its result before the task has quite returned.
  auto task = std::make_shared<std::packaged_task<decltype(action())()>>(std::move(action));
  asio::post(context, [task] { (*task)(); });
  return task->get_future().get();
}

SimulatedPort::SimulatedPort(std::vector<SimulatedModule> modules, SimulatedPortOptions options)
    : loop_(std::make_unique<PortLoop>(std::move(modules), std::move(options))), thread_([this] {
        blockSignals();
        loop_->context().run();
      }) {}

SimulatedPort::SimulatedPort(SimulatedModule module, SimulatedPortOptions options)
    : SimulatedPort(std::vector{std::move(module)}, std::move(options)) {}

SimulatedPort::~SimulatedPort() {
  loop_->context().stop();
  thread_.join();
}

std::string SimulatedPort::device() const {
  return onLine([this] { return loop_->device(); });
}

void SimulatedPort::unplug() {
  onLine([this] { loop_->unplug(); });
}

void SimulatedPort::plug() {
  onLine([this] { loop_->plug(); });
}

void SimulatedPort::setFaults(std::uint8_t address, std::vector<Fault> faults) {
  onLine([this, address, &faults] { loop_->bus().slave(address).setFaults(std::move(faults)); });
}

void SimulatedPort::setFaults(const std::vector<Fault>& faults) {
  onLine([this, &faults] {
    for (ModbusSlave& slave : loop_->bus().slaves()) slave.setFaults(faults);
  });
}

void SimulatedPort::setRegister(std::uint8_t address, std::uint16_t number, std::uint16_t word) {
  onLine([this, address, number, word] { loop_->bus().slave(address).setRegister(number, word); });
}

LineCounters SimulatedPort::counters() const {
  return onLine([this] { return loop_->bus().counters(); });
}

std::vector<SeenRequest> SimulatedPort::log() const {
  return onLine([this] {
    const auto& log = loop_->bus().log();
    return std::vector(log.begin(), log.end());
  });
}

}  // namespace tessara
