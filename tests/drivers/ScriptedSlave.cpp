#include "drivers/ScriptedSlave.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tessara::testing {

using namespace std::chrono_literals;

namespace {

constexpr std::uint8_t reportServerIdFunction = 17;

void appendWords(Bytes& bytes, const std::vector<std::uint16_t>& words) {
  for (const std::uint16_t word : words) {
    bytes.push_back(static_cast<std::uint8_t>(word >> 8U));
    bytes.push_back(static_cast<std::uint8_t>(word));
  }
}

}  // namespace

std::size_t modbusRequestLength(const Bytes& begun) {
  return begun.size() > 1 && begun[1] == reportServerIdFunction ? 4 : 8;
}

ScriptedSlave::ScriptedSlave(Script script, RequestLength requestLength)
    : script_(std::move(script)),
      requestLength_(std::move(requestLength)),
      thread_([this] { run(); }) {}

ScriptedSlave::~ScriptedSlave() {
  isEnding_ = true;
  thread_.join();
}

std::vector<Bytes> ScriptedSlave::requests() const {
  const std::lock_guard guard(mutex_);
  return requests_;
}

std::vector<std::chrono::nanoseconds> ScriptedSlave::silences() const {
  const std::lock_guard guard(mutex_);
  return silences_;
}

void ScriptedSlave::sendUnasked(const Bytes& bytes) const {
  if (::write(port_.line(), bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size())) {
    throw std::system_error(errno, std::generic_category(), "write");
  }
  for (int waiting = 0; waiting < static_cast<int>(bytes.size());) {
    std::this_thread::sleep_for(1ms);
    ::ioctl(port_.terminal(), FIONREAD, &waiting);
  }
}

void ScriptedSlave::unplug() {
  isUnplugged_ = true;
  isEnding_ = true;
  thread_.join();
  thread_ = std::thread([] {});
}

void ScriptedSlave::run() {
  while (!isEnding_) {
    const auto now = Clock::now();
    const auto next = std::min_element(
        due_.begin(), due_.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    if (next != due_.end() && next->first <= now) {
      const Piece piece = next->second;
      due_.erase(next);
      send(piece);
    } else if (requestComes(next == due_.end() ? now + 10ms : std::min(next->first, now + 10ms))) {
      take();
    } else if (isNoisy_) {
      send({0ms, {0x55}, false});
    }
  }
  if (isUnplugged_) {
    port_.unplug();
  }
}

bool ScriptedSlave::requestComes(Clock::time_point until) const {
  ::pollfd watched{port_.line(), POLLIN, 0};
  const std::chrono::nanoseconds left = std::max<Clock::duration>(until - Clock::now(), 0ns);
  const ::timespec wait{0, static_cast<long>(left.count())};
  return ::ppoll(&watched, 1, &wait, nullptr) > 0;
}

void ScriptedSlave::take() {
  std::array<std::uint8_t, 256> buffer{};
  const ssize_t length = ::read(port_.line(), buffer.data(), buffer.size());
  const auto now = Clock::now();
  incoming_.insert(incoming_.end(), buffer.begin(), buffer.begin() + std::max<ssize_t>(length, 0));
  if (incoming_.size() < requestLength_(incoming_)) {
    return;
  }
  std::size_t index = 0;
  {
    const std::lock_guard guard(mutex_);
    index = requests_.size();
    requests_.push_back(incoming_);
    if (index > 0) {
      silences_.push_back(now - lastSent_);
    }
  }
  for (const Piece& piece : script_(incoming_, index)) {
    due_.emplace_back(now + piece.after, piece);
  }
  incoming_.clear();
}

void ScriptedSlave::send(const Piece& piece) {
  lastSent_ = Clock::now();
  if (!piece.bytes.empty() && ::write(port_.line(), piece.bytes.data(), piece.bytes.size()) < 0) {
    throw std::system_error(errno, std::generic_category(), "write");
  }
  if (piece.unplugs) {
    isUnplugged_ = true;
    isEnding_ = true;
  }
}

Bytes framed(Bytes bytes) {
  unsigned int sum = 0xFFFF;
  for (const std::uint8_t byte : bytes) {
    sum ^= byte;
    for (int bit = 0; bit < 8; ++bit) {
      const bool carry = (sum & 1U) != 0;
      sum >>= 1U;
      if (carry) {
        sum ^= 0xA001U;
      }
    }
  }
  bytes.push_back(static_cast<std::uint8_t>(sum));
  bytes.push_back(static_cast<std::uint8_t>(sum >> 8U));
  return bytes;
}

Bytes registersAnswer(std::uint8_t address, const std::vector<std::uint16_t>& words) {
  Bytes bytes{address, 4, static_cast<std::uint8_t>(2 * words.size())};
  appendWords(bytes, words);
  return framed(bytes);
}

Bytes identificationAnswer(std::uint8_t address, const std::vector<std::uint16_t>& words) {
  Bytes bytes{address, reportServerIdFunction, static_cast<std::uint8_t>(2 + 2 * words.size()),
              0x01, 0xFF};
  appendWords(bytes, words);
  return framed(bytes);
}

}  // namespace tessara::testing
