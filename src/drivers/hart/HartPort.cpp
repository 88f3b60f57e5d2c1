#include "drivers/hart/HartPort.h"

#include <cerrno>
#include <thread>
#include <utility>

#include <asio/buffer.hpp>
#include <asio/error.hpp>
#include <asio/write.hpp>
#include <fcntl.h>
#include <termios.h>

#include "drivers/hart/HartFault.h"

namespace tessara {

namespace {

constexpr unsigned int kRate = 1200;
constexpr std::size_t kCharactersBehindSending = 2;  // for what the adapter still holds

/// Bytes as they come, without any meaning of their own.
void makeRaw(int descriptor) {
  ::termios settings{};
  if (::tcgetattr(descriptor, &settings) != 0) throw PortError::fromErrno(errno);
  ::cfmakeraw(&settings);
  settings.c_iflag &= ~static_cast<::tcflag_t>(IXOFF | IXANY | INPCK | PARMRK);
  settings.c_cflag |= CREAD | CLOCAL;
  settings.c_cc[VMIN] = 1;
  settings.c_cc[VTIME] = 0;
  if (::tcsetattr(descriptor, TCSANOW, &settings) != 0) throw PortError::fromErrno(errno);
}

void setUp(asio::serial_port& port) {
  using asio::serial_port_base;
  port.set_option(serial_port_base::baud_rate(kRate));
  port.set_option(serial_port_base::character_size(8));
  port.set_option(serial_port_base::stop_bits(serial_port_base::stop_bits::one));
  port.set_option(serial_port_base::flow_control(serial_port_base::flow_control::none));
  asio::error_code refusal;
  port.set_option(serial_port_base::parity(serial_port_base::parity::odd), refusal);
  // A pseudo-terminal knows no parity and refuses it.
  if (refusal && refusal != asio::error::invalid_argument) throw asio::system_error(refusal);
  makeRaw(port.native_handle());
  ::tcflush(port.native_handle(), TCIOFLUSH);
}

}  // namespace

void HartPort::open(const std::string& device) {
  close();
  try {
    lock_.emplace(device);
    // The lock closes its own descriptor, and the port one that means the same.
    const int descriptor = ::fcntl(lock_->descriptor(), F_DUPFD_CLOEXEC, 0);
    if (descriptor < 0) throw PortError::fromErrno(errno);
    port_.emplace(context_);
    port_->assign(descriptor);
    setUp(*port_);
    modem_.open(descriptor);
  } catch (const asio::system_error& error) {
    close();
    throw PortError::fromErrno(error.code().value());
  } catch (...) {
    close();
    throw;
  }
}

void HartPort::close() noexcept {
  port_.reset();
  lock_.reset();
}

HartPort::Clock::time_point HartPort::send(std::span<const std::uint8_t> bytes) {
  const bool isSwitched = modem_.startSending();
  const auto end = Clock::now() + timings_.characters(bytes.size());
  const std::size_t sent = await(end + timings_.hostMargin, [&](Completion completion) {
    asio::async_write(*port_, asio::buffer(bytes.data(), bytes.size()), std::move(completion));
  });
  if (isSwitched) {
    std::this_thread::sleep_until(end + timings_.characters(kCharactersBehindSending));
    modem_.stopSending();
  }
  if (sent < bytes.size()) {
    throw HartFault(HartFaultKind::NoLine, "the port takes no characters");
  }
  return end;
}

std::span<const std::uint8_t> HartPort::receive(Clock::time_point deadline) {
  const std::size_t length = await(deadline, [&](Completion completion) {
    port_->async_read_some(asio::buffer(buffer_), std::move(completion));
  });
  return std::span(buffer_).first(length);
}

/// Runs one operation until it has completed or the deadline has passed; gives the bytes that it
/// has moved.
std::size_t HartPort::await(Clock::time_point deadline,
                            const std::function<void(Completion)>& operation) {
  bool isDone = false;
  asio::error_code error;
  std::size_t moved = 0;
  operation([&](const asio::error_code& result, std::size_t length) {
    isDone = true;
    error = result;
    moved = length;
  });
  context_.restart();
  context_.poll();
  if (!isDone) {
    context_.restart();
    context_.run_until(deadline);
  }
  if (!isDone) {
    port_->cancel();
    context_.restart();
    context_.run();
  }
  if (error && error != asio::error::operation_aborted) {
    throw HartFault(HartFaultKind::NoLine, "the port has gone");
  }
  return moved;
}

}  // namespace tessara
