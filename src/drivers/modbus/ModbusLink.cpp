#include "drivers/modbus/ModbusLink.h"

#include <algorithm>
#include <cerrno>
#include <new>

#include <poll.h>
#include <sys/select.h>
#include <unistd.h>

#include "drivers/modbus/ModbusFault.h"
#include "drivers/modbus/SerialSettings.h"

namespace tessara {

using namespace std::chrono_literals;

namespace {

constexpr std::size_t kChecksumLength = 2;

/// The silence that ends a frame: 3.5 characters, and a fixed time at the rates above 19200 bit/s.
std::chrono::nanoseconds silenceAt(std::int32_t rate) {
  constexpr std::int32_t kLastProportionalRate = 19200;
  return rate > kLastProportionalRate ? 1750us : characterTime(rate) * 7 / 2;
}

ModbusFault portHasGone() {
  return {ModbusFaultKind::NoLine, "the port has gone"};
}

}  // namespace

void ModbusLink::open(const std::string& device, std::int32_t rate) {
  close();
  if (device != device_ || rate != rate_) {
    owedAnswers_ = 0;
    isTroubled_ = false;
    device_ = device;
    rate_ = rate;
  }
  try {
    port_.emplace(device);
    // libmodbus waits with select(), which cannot watch a descriptor beyond its set.
    if (port_->descriptor() >= FD_SETSIZE) {
      throw PortError::fromErrno(EMFILE);
    }
    applySettings(port_->descriptor(), rate);
    context_.reset(modbus_new_rtu(device.c_str(), rate, 'E', 8, 1));
    if (!context_) {
      throw std::bad_alloc();
    }
    // The port is the lock's: libmodbus neither opens nor closes it.
    modbus_set_socket(context_.get(), port_->descriptor());
    modbus_set_byte_timeout(context_.get(), 0, 0);  // the response timeout covers the whole answer
  } catch (...) {
    close();
    throw;
  }
  lastTraffic_ = Clock::now();
}

void ModbusLink::close() noexcept {
  context_.reset();
  port_.reset();
}

std::span<const std::uint8_t> ModbusLink::ask(const ModbusRequest& request) {
  if (!port_) {
    throw ModbusFault(ModbusFaultKind::NoLine, "no connection is open");
  }
  awaitOwedAnswers();
  const Clock::time_point begun = Clock::now();
  for (bool isRepeat = false;; isRepeat = true) {
    try {
      const auto data = exchange(request);
      noteOwedAnswers(begun);
      return data;
    } catch (const ModbusFault& fault) {
      if (fault.leavesAnswerOwed()) {
        ++owedAnswers_;
      }
      if (fault.isWorthRepeating() && !isRepeat) {
        continue;
      }
      noteOwedAnswers(begun);
      if (isRepeat) {
        throw ModbusFault(fault.kind(), std::string(fault.what()) + ", asked twice");
      }
      throw;
    }
  }
}

std::span<const std::uint8_t> ModbusLink::exchange(const ModbusRequest& request) {
  awaitSilence(isTroubled_ ? timings_.settling : silenceAt(rate_));
  isTroubled_ = true;
  send(request);
  const auto frame = receive(request);
  isTroubled_ = false;
  return request.dataOf(frame);
}

void ModbusLink::send(const ModbusRequest& request) {
  const auto bytes = request.bytes();
  modbus_set_slave(context_.get(), request.unit());
  if (modbus_send_raw_request(context_.get(), bytes.data(), static_cast<int>(bytes.size())) < 0) {
    if (errno == EAGAIN || errno == EMBBADDATA) {
      throw ModbusFault(ModbusFaultKind::NoLine, "the port takes no characters");
    }
    throw portHasGone();
  }
  lastTraffic_ = Clock::now() + characters(bytes.size() + kChecksumLength);
}

std::span<const std::uint8_t> ModbusLink::receive(const ModbusRequest& request) {
  if (!inputComesBefore(lastTraffic_ + timings_.answer)) {
    throw ModbusFault(ModbusFaultKind::Silence,
                      "no answer within " + std::to_string(timings_.answer.count()) + " ms");
  }
  const auto limit = std::chrono::duration_cast<std::chrono::microseconds>(
      characters(request.longestAnswer()) + timings_.pauses);
  modbus_set_response_timeout(context_.get(), static_cast<std::uint32_t>(limit / 1s),
                              static_cast<std::uint32_t>((limit % 1s).count()));
  buffer_.fill(0);
  const int length = modbus_receive_confirmation(context_.get(), buffer_.data());
  const int error = errno;
  lastTraffic_ = Clock::now();
  if (length > 0) {
    return std::span(buffer_).first(static_cast<std::size_t>(length));
  }
  // A frame from another unit is passed on by libmodbus with its checksum unverified.
  if (length == 0 && holdsWholeFrame(buffer_)) {
    return buffer_;
  }
  const bool isCut = length < 0 && error == ETIMEDOUT;
  if (length < 0 && !isCut && error != EMBBADCRC && error != EMBBADDATA) {
    throw portHasGone();
  }
  throw ModbusFault(
      request.isAnsweredBy(buffer_) ? ModbusFaultKind::Damage : ModbusFaultKind::Noise,
      isCut ? "the answer broke off" : "checksum error");
}

void ModbusLink::awaitSilence(std::chrono::nanoseconds silence) {
  const Clock::time_point limit = Clock::now() + timings_.noise;
  while (inputComesBefore(lastTraffic_ + silence)) {
    discardInput();
    lastTraffic_ = Clock::now();
    if (lastTraffic_ > limit) {
      throw ModbusFault(ModbusFaultKind::NoLine, "the line does not fall quiet");
    }
  }
}

void ModbusLink::awaitOwedAnswers() {
  for (; owedAnswers_ > 0 && inputComesBefore(owedUntil_); --owedAnswers_) {
    awaitSilence(timings_.settling);
  }
  owedAnswers_ = 0;
}

void ModbusLink::noteOwedAnswers(Clock::time_point begun) {
  const Clock::time_point now = Clock::now();
  owedUntil_ = now + std::max<Clock::duration>(now - begun, timings_.answer) + timings_.pauses;
}

bool ModbusLink::inputComesBefore(Clock::time_point end) {
  ::pollfd watched{port_->descriptor(), POLLIN, 0};
  int ready = -1;
  do {
    const std::chrono::nanoseconds left = std::max<Clock::duration>(end - Clock::now(), 0ns);
    const ::timespec wait{static_cast<std::time_t>(left / 1s),
                          static_cast<long>((left % 1s).count())};
    ready = ::ppoll(&watched, 1, &wait, nullptr);
  } while (ready < 0 && errno == EINTR);
  if (ready != 0 && (watched.revents & POLLIN) == 0) {
    throw portHasGone();
  }
  return ready != 0;
}

void ModbusLink::discardInput() {
  const ::ssize_t length = ::read(port_->descriptor(), buffer_.data(), buffer_.size());
  if (length == 0 || (length < 0 && errno != EAGAIN && errno != EINTR)) {
    throw portHasGone();
  }
}

std::chrono::nanoseconds ModbusLink::characters(std::size_t count) const {
  return characterTime(rate_) * static_cast<std::int64_t>(count);
}

}  // namespace tessara
