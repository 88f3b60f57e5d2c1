#include "BareRead.h"

#include <array>
#include <cerrno>
#include <memory>
#include <stdexcept>
#include <thread>

#include <modbus/modbus.h>

namespace tessara::bench {
namespace {

using Clock = std::chrono::steady_clock;
using Context = std::unique_ptr<modbus_t, decltype(&modbus_free)>;

constexpr int station = 192;

Context connectTo(const std::string& device, int rate) {
  // A pseudo-terminal accepts even parity once and refuses it from then on.
  for (const char parity : {'E', 'N'}) {
    Context context(modbus_new_rtu(device.c_str(), rate, parity, 8, 1), &modbus_free);
    modbus_set_slave(context.get(), station);
    if (modbus_connect(context.get()) == 0) {
      return context;
    }
  }
  throw std::runtime_error("libmodbus cannot connect: " + std::string(modbus_strerror(errno)));
}

void ask(modbus_t* context, const Exchange& exchange) {
  std::array<std::uint8_t, MODBUS_MAX_ADU_LENGTH> bytes{};
  std::array<std::uint16_t, MODBUS_MAX_READ_REGISTERS> words{};
  const int got =
      exchange.function == 17
          ? modbus_report_slave_id(context, static_cast<int>(bytes.size()), bytes.data())
          : modbus_read_input_registers(context, exchange.start, exchange.count, words.data());
  if (got < 0) {
    throw std::runtime_error("no answer: " + std::string(modbus_strerror(errno)));
  }
}

}  // namespace

Seconds bareRead(const std::string& device, int rate, const ModuleOnLine& module) {
  const auto begun = Clock::now();
  const Context context = connectTo(device, rate);
  auto lastTraffic = Clock::now();
  for (const Exchange& exchange : module.exchanges) {
    const Seconds wait = std::max(silence(rate), exchange.delayBefore);
    std::this_thread::sleep_until(lastTraffic + std::chrono::duration_cast<Clock::duration>(wait));
    ask(context.get(), exchange);
    lastTraffic = Clock::now();
  }
  modbus_close(context.get());
  return Clock::now() - begun;
}

}  // namespace tessara::bench
