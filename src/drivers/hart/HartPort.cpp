#include "drivers/hart/HartPort.h"

#include <thread>

#include "drivers/hart/HartFault.h"
#include "serial/LineError.h"

namespace tessara {

namespace {

constexpr LineSettings lineSettings{.rate = 1200, .parity = Parity::Odd};

/// Characters that an adapter may still hold when the system has none left to send.
constexpr std::size_t charactersInAdapter = 2;

/// The modem sends for as long as the object lives, if it can be switched from here.
class Sending {
 public:
  explicit Sending(HartModem& modem) : modem_(modem), isSwitched_(modem.startSending()) {}
  ~Sending() { modem_.stopSending(); }
  Sending(const Sending&) = delete;
  Sending& operator=(const Sending&) = delete;

  [[nodiscard]] bool isSwitched() const { return isSwitched_; }

 private:
  HartModem& modem_;
  bool isSwitched_;
};

/// Returns what `access` to the line returns.
template <class Access>
auto onLine(Access access) {
  try {
    return access();
  } catch (const LineError& error) {
    throw HartFault(HartFaultKind::NoLine, error.what());
  }
}

}  // namespace

void HartPort::open(const std::string& device) {
  close();
  try {
    line_.emplace(device);
    line_->configure(lineSettings);
    modem_.emplace(options_.carrier, options_.controlLines ? *options_.controlLines : *line_);
  } catch (...) {
    close();
    throw;
  }
}

void HartPort::close() noexcept {
  modem_.reset();
  line_.reset();
}

HartPort::Clock::time_point HartPort::send(std::span<const std::uint8_t> bytes) {
  const HartTimings& timings = options_.timings;
  const Sending sending(*modem_);
  const auto end = Clock::now() + timings.characters(bytes.size());
  const auto deadline = end + timings.hostMargin;
  const bool isSent = onLine([&] {
    const bool isTaken = line_->write(bytes, deadline) == bytes.size();
    return isTaken && (!sending.isSwitched() || line_->drain(deadline));
  });
  if (!isSent) throw HartFault(HartFaultKind::NoLine, "the port takes no characters");
  if (sending.isSwitched()) {
    std::this_thread::sleep_until(end + timings.characters(charactersInAdapter));
  }
  return end;
}

std::span<const std::uint8_t> HartPort::receive(Clock::time_point deadline) {
  const std::size_t length = onLine([&] { return line_->read(buffer_, deadline); });
  return std::span(buffer_).first(length);
}

}  // namespace tessara
