#include "simulator/PortLoop.h"

#include <algorithm>
#include <memory>
#include <span>
#include <system_error>
#include <utility>

#include <asio/error_code.hpp>
#include <asio/steady_timer.hpp>

#include "serial/LineTiming.h"

namespace tessara {

namespace {

using namespace std::chrono_literals;

/// The silence that ends a frame of unknown length. Much longer than 3.5 characters, because the
/// kernel delivers a client's bytes in pieces that need not follow each other closely.
constexpr auto frameEnd = 20ms;

/// How much of an answer is put on a paced line at once, if it is more than one character.
constexpr auto paceStep = 1ms;

/// How long a client may take to read the last bytes before the port goes away.
constexpr auto maxLastRead = 100ms;
constexpr auto lastReadStep = 1ms;

void makeLink(const std::filesystem::path& link, const std::filesystem::path& target) {
  const std::filesystem::path fresh = link.string() + ".new";
  if (std::filesystem::exists(std::filesystem::symlink_status(link)) &&
      !std::filesystem::is_symlink(link)) {
    throw std::filesystem::filesystem_error("no link to the virtual port", link,
                                            std::make_error_code(std::errc::file_exists));
  }
  std::filesystem::remove(fresh);
  std::filesystem::create_symlink(target, fresh);
  std::filesystem::rename(fresh, link);
}

}  // namespace

PortLoop::PortLoop(std::unique_ptr<SimulatedLine> line, SimulatedPortOptions options)
    : line_(std::move(line)),
      options_(std::move(options)),
      work_(context_.get_executor()),
      events_(context_) {
  install();
}

PortLoop::~PortLoop() {
  remove();
}

std::string PortLoop::device() const {
  if (!port_) return {};
  return options_.link.empty() ? port_->device() : options_.link;
}

void PortLoop::plug() {
  if (port_) return;
  install();
  if (options_.deviceChanged) options_.deviceChanged(port_->device());
}

void PortLoop::unplug() {
  if (!port_) return;
  remove();
  if (options_.deviceChanged) options_.deviceChanged({});
}

void PortLoop::install() {
  VirtualPort port;
  if (!options_.link.empty()) makeLink(options_.link, port.device());
  port_ = std::move(port);
  ++plugging_;
  events_.assign(port_->descriptor());
  waitForEvents();
}

void PortLoop::remove() {
  if (!port_) return;
  if (!options_.link.empty()) {
    std::error_code ignored;  // another program may have removed the link
    std::filesystem::remove(options_.link, ignored);
  }
  // The port closes its own descriptor.
  events_.release();
  port_.reset();
  ++plugging_;
  leaving_ = false;
  sending_ = 0;
  line_->forgetOpenFrame();
}

void PortLoop::waitForEvents() {
  events_.async_wait(asio::posix::stream_descriptor::wait_read,
                     [this, plugging = plugging_](const asio::error_code& error) {
                       if (error || plugging != plugging_) return;
                       receive();
                       port_->clearLeavings();
                       waitForEvents();
                     });
}

void PortLoop::receive() {
  port_->settle();
  for (Bytes bytes = port_->receive(); !bytes.empty(); bytes = port_->receive()) take(bytes);
}

void PortLoop::take(const Bytes& bytes) {
  if (leaving_) return;
  if (sending_ > 0 && line_->isDeafWhileSending()) return;
  lastByte_ = Clock::now();
  if (options_.paced) {
    const auto duration = characterTime(port_->rate()) * bytes.size();
    wireFree_ = std::max(wireFree_, lastByte_) + duration;
  }
  for (SimulatedAnswer& answer : line_->receive(bytes)) prepare(std::move(answer));
  if (line_->isFrameOpen()) waitForSilence();
}

void PortLoop::waitForSilence() {
  at(lastByte_ + frameEnd, [this] {
    if (!line_->isFrameOpen() || Clock::now() < lastByte_ + frameEnd) return;
    if (auto answer = line_->silence()) prepare(std::move(*answer));
  });
}

void PortLoop::prepare(SimulatedAnswer answer) {
  leaving_ = leaving_ || answer.unplug.has_value();
  const auto now = Clock::now();
  const auto due = options_.paced ? wireFree_ + silentTime(port_->rate()) : now;
  const auto start = std::max(now, due) + answer.delay;
  if (start <= now) {
    begin(std::move(answer), start);
  } else {
    at(start, [this, start, answer = std::move(answer)] { begin(answer, start); });
  }
}

void PortLoop::begin(SimulatedAnswer answer, Clock::time_point start) {
  ++sending_;
  if (options_.paced) {
    const auto character = characterTime(port_->rate());
    const auto first = std::max(start, wireFree_);
    wireFree_ = first + character * answer.bytes.size();
    transmit({std::move(answer), 0, first, character});
  } else {
    port_->send(answer.bytes);
    finish(std::move(answer));
  }
}

void PortLoop::transmit(Transmission transmission) {
  const std::size_t left = transmission.answer.bytes.size() - transmission.sent;
  if (left == 0) return finish(std::move(transmission.answer));
  const auto step = static_cast<std::size_t>(
      std::max<std::int64_t>(1, std::chrono::nanoseconds(paceStep) / transmission.character));
  const std::size_t count = std::min(left, step);
  const auto due = transmission.begin + transmission.character * (transmission.sent + count);
  at(due, [this, count, transmission = std::move(transmission)]() mutable {
    port_->send(std::span(transmission.answer.bytes).subspan(transmission.sent, count));
    transmission.sent += count;
    transmit(std::move(transmission));
  });
}

void PortLoop::finish(SimulatedAnswer answer) {
  --sending_;
  if (!answer.more.empty()) {
    const auto start = Clock::now() + answer.more.front().pause;
    answer.bytes = std::move(answer.more.front().bytes);
    answer.more.erase(answer.more.begin());
    at(start, [this, start, answer = std::move(answer)] { begin(answer, start); });
  } else if (answer.unplug) {
    unplugWhenRead(*answer.unplug, Clock::now() + maxLastRead);
  }
}

void PortLoop::unplugWhenRead(const faults::Unplug& fault, Clock::time_point deadline) {
  at(Clock::now() + lastReadStep, [this, fault, deadline] {
    if (!port_->isRead() && Clock::now() < deadline) return unplugWhenRead(fault, deadline);
    unplug();
    if (fault.replugAfter == 0ms) {
      replug(0ms);  // before any client can notice
    } else if (fault.replugAfter) {
      replugAfter(*fault.replugAfter);
    }
  });
}

void PortLoop::replugAfter(std::chrono::milliseconds delay) {
  at(Clock::now() + delay, [this, delay] { replug(delay); });
}

void PortLoop::replug(std::chrono::milliseconds delay) {
  try {
    plug();
  } catch (const std::system_error&) {
    replugAfter(delay);  // a shortage of the system may be over next time
  }
}

void PortLoop::at(Clock::time_point time, std::function<void()> action) {
  auto timer = std::make_shared<asio::steady_timer>(context_, time);
  timer->async_wait([this, timer, plugging = plugging_,
                     action = std::move(action)](const asio::error_code& error) {
    if (!error && plugging == plugging_) action();
  });
}

}  // namespace tessara
