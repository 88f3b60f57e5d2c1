#include "drivers/modbus/ModbusLink.h"

#include <algorithm>
#include <cerrno>
#include <new>
#include <string>

#include <sys/select.h>

#include "serial/LineError.h"
#include "serial/LineTiming.h"
#include "serial/PortError.h"

namespace tessara {

using namespace std::chrono_literals;

namespace {

ModbusFault portHasGone() {
  return {ModbusFaultKind::NoLine, LineError(LineProblem::Gone).what()};
}

void requireRate(std::int32_t rate) {
  if (rate >= minLineRate) return;
  throw PortError(PortProblem::Refused, "cannot be opened at " + std::to_string(rate) +
                                            " bit/s: the lowest rate is " +
                                            std::to_string(minLineRate) + " bit/s");
}

/// libmodbus waits with select(), which cannot watch a descriptor beyond its set.
void requireSelectable(std::intptr_t descriptor) {
  if (descriptor >= FD_SETSIZE) throw PortError::refused("Too many open files");
}

}  // namespace

void ModbusLink::open(const std::string& device, std::int32_t rate) {
  close();
  requireRate(rate);
  if (device != device_ || rate != rate_) {
    owedAnswers_ = 0;
    isTroubled_ = false;
    device_ = device;
    rate_ = rate;
  }
  try {
    line_.emplace(device);
    requireSelectable(line_->nativeHandle());
    line_->configure({.rate = rate, .parity = Parity::Even, .checksParity = true});
    context_.reset(modbus_new_rtu(device.c_str(), rate, 'E', 8, 1));
    if (!context_) throw std::bad_alloc();
    // The port stays the line's: libmodbus neither opens nor closes it.
    modbus_set_socket(context_.get(), static_cast<int>(line_->nativeHandle()));
    modbus_set_byte_timeout(context_.get(), 0, 0);  // the response timeout covers the whole answer
  } catch (...) {
    close();
    throw;
  }
  lastTraffic_ = Clock::now();
}

void ModbusLink::close() noexcept {
  context_.reset();
  line_.reset();
}

std::span<const std::uint8_t> ModbusLink::ask(const ModbusRequest& request) {
  if (!line_) throw ModbusFault(ModbusFaultKind::NoLine, "no connection is open");
  try {
    awaitOwedAnswers();
    return askUntilAnswered(request);
  } catch (const LineError& error) {
    throw ModbusFault(ModbusFaultKind::NoLine, error.what());
  }
}

std::span<const std::uint8_t> ModbusLink::askUntilAnswered(const ModbusRequest& request) {
  const Clock::time_point begun = Clock::now();
  std::optional<Clock::time_point> busyUntil;
  auto silence = silentTime(rate_);
  for (bool isRepeat = false;;) {
    try {
      const auto data = exchange(request, silence);
      noteOwedAnswers(begun);
      return data;
    } catch (const ModbusFault& fault) {
      if (fault.leavesAnswerOwed()) ++owedAnswers_;
      if (fault.isWorthRepeating() && !isRepeat) {
        isRepeat = true;
        continue;
      }
      const bool isBusy = fault.kind() == ModbusFaultKind::Busy;
      const auto now = Clock::now();
      if (isBusy && now + timings_.busyPause < busyUntil.value_or(now + timings_.answer)) {
        if (!busyUntil) busyUntil = now + timings_.answer;
        silence = std::max<std::chrono::nanoseconds>(silence, timings_.busyPause);
        continue;
      }
      noteOwedAnswers(begun);
      if (isBusy) {
        throw ModbusFault(fault.kind(), std::string(fault.what()) + ", asked for " +
                                            std::to_string(timings_.answer.count()) + " ms");
      }
      if (!isRepeat || fault.kind() == ModbusFaultKind::NoLine) throw;
      throw ModbusFault(fault.kind(), std::string(fault.what()) + ", asked twice");
    }
  }
}

/// Sends the request after the line has been silent for `silence`, or has settled.
std::span<const std::uint8_t> ModbusLink::exchange(const ModbusRequest& request,
                                                   std::chrono::nanoseconds silence) {
  awaitSilence(isTroubled_ ? timings_.settling : silence);
  isTroubled_ = true;
  send(request);
  const auto frame = receive(request);
  isTroubled_ = false;
  return request.dataOf(frame);
}

void ModbusLink::send(const ModbusRequest& request) {
  const auto bytes = request.bytes();
  modbus_set_slave(context_.get(), request.address());
  if (modbus_send_raw_request(context_.get(), bytes.data(), static_cast<int>(bytes.size())) < 0) {
    if (errno == EAGAIN || errno == EMBBADDATA) {
      throw ModbusFault(ModbusFaultKind::NoLine, "the port takes no characters");
    }
    throw portHasGone();
  }
  lastTraffic_ = Clock::now() + characters(bytes.size() + modbusChecksumLength);
}

std::span<const std::uint8_t> ModbusLink::receive(const ModbusRequest& request) {
  if (!line_->waitForInput(lastTraffic_ + timings_.answer)) {
    throw ModbusFault(ModbusFaultKind::Silence,
                      "no answer within " + std::to_string(timings_.answer.count()) + " ms");
  }
  const auto limit = std::chrono::duration_cast<std::chrono::microseconds>(
      characters(request.maxAnswerLength()) + timings_.pauses);
  modbus_set_response_timeout(context_.get(), static_cast<std::uint32_t>(limit / 1s),
                              static_cast<std::uint32_t>((limit % 1s).count()));
  buffer_.fill(0);
  const int length = modbus_receive_confirmation(context_.get(), buffer_.data());
  const int error = errno;
  lastTraffic_ = Clock::now();
  if (length > 0) {
    return std::span(buffer_).first(static_cast<std::size_t>(length));
  }
  // A frame from another address is passed on by libmodbus with its checksum unverified.
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

/// Waits until nothing has come for `silence`, and discards what comes until then.
void ModbusLink::awaitSilence(std::chrono::nanoseconds silence) {
  const Clock::time_point limit = Clock::now() + timings_.noise;
  while (line_->waitForInput(lastTraffic_ + silence)) {
    line_->discardInput();
    lastTraffic_ = Clock::now();
    if (lastTraffic_ > limit) {
      throw ModbusFault(ModbusFaultKind::NoLine, "the line does not fall quiet");
    }
  }
}

void ModbusLink::awaitOwedAnswers() {
  for (; owedAnswers_ > 0 && line_->waitForInput(owedUntil_); --owedAnswers_) {
    awaitSilence(timings_.settling);
  }
  owedAnswers_ = 0;
}

void ModbusLink::noteOwedAnswers(Clock::time_point begun) {
  const Clock::time_point now = Clock::now();
  owedUntil_ = now + std::max<Clock::duration>(now - begun, timings_.answer) + timings_.pauses;
}

std::chrono::nanoseconds ModbusLink::characters(std::size_t count) const {
  return characterTime(rate_) * static_cast<std::int64_t>(count);
}

}  // namespace tessara
