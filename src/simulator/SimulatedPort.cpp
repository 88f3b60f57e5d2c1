#include "simulator/SimulatedPort.h"

#include <utility>

namespace tessara {

SimulatedPort::SimulatedPort(std::unique_ptr<ModbusBus> bus, SimulatedPortOptions options)
    : bus_(*bus), port_(std::move(bus), std::move(options)) {}

SimulatedPort::SimulatedPort(std::vector<SimulatedModule> modules, SimulatedPortOptions options)
    : SimulatedPort(std::make_unique<ModbusBus>(std::move(modules)), std::move(options)) {}

SimulatedPort::SimulatedPort(SimulatedModule module, SimulatedPortOptions options)
    : SimulatedPort(std::vector{std::move(module)}, std::move(options)) {}

void SimulatedPort::setFaults(std::uint8_t address, std::vector<Fault> faults) {
  port_.onLine([this, address, &faults] { bus_.slave(address).setFaults(std::move(faults)); });
}

void SimulatedPort::setFaults(const std::vector<Fault>& faults) {
  port_.onLine([this, &faults] {
    for (ModbusSlave& slave : bus_.slaves()) slave.setFaults(faults);
  });
}

void SimulatedPort::setRegister(std::uint8_t address, std::uint16_t number, std::uint16_t word) {
  port_.onLine([this, address, number, word] { bus_.slave(address).setRegister(number, word); });
}

LineCounters SimulatedPort::counters() const {
  LineCounters counters;
  port_.onLine([this, &counters] { counters = bus_.counters(); });
  return counters;
}

std::vector<SeenRequest> SimulatedPort::log() const {
  std::vector<SeenRequest> log;
  port_.onLine([this, &log] { log.assign(bus_.log().begin(), bus_.log().end()); });
  return log;
}

}  // namespace tessara
