#include "simulator/ModbusBus.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <utility>

namespace tessara {

ModbusBus::ModbusBus(std::vector<SimulatedModule> modules) {
  if (modules.empty()) throw std::invalid_argument("a line needs at least one module");
  for (SimulatedModule& module : modules) {
    if (find(module.address) != nullptr) {
      throw std::invalid_argument("two modules on one line have the address " +
                                  std::to_string(module.address));
    }
    slaves_.emplace_back(std::move(module));
  }
}

std::vector<SimulatedAnswer> ModbusBus::receive(std::span<const std::uint8_t> bytes) {
  std::vector<SimulatedAnswer> answers;
  assembler_.append(bytes);
  while (const auto frame = assembler_.takeComplete()) {
    if (auto reply = answer(*frame)) answers.push_back(std::move(*reply));
  }
  return answers;
}

std::optional<SimulatedAnswer> ModbusBus::silence() {
  return answer(assembler_.takeAll());
}

ModbusSlave& ModbusBus::slave(std::uint8_t address) {
  ModbusSlave* found = find(address);
  if (found == nullptr) {
    throw std::out_of_range("no module on this line has the address " + std::to_string(address));
  }
  return *found;
}

std::optional<SimulatedAnswer> ModbusBus::answer(const Bytes& frame) {
  auto request = decodeModbusRequest(frame);
  if (!request) {
    ++counters_.damaged;
    return std::nullopt;
  }
  std::optional<SimulatedAnswer> reply;
  if (ModbusSlave* addressed = find(request->address)) {
    ++counters_.requests;
    reply = addressed->answer(*request);
  } else {
    ++counters_.foreign;
  }
  if (log_.size() == maxLogged) log_.pop_front();
  log_.push_back({std::move(*request), reply ? reply->bytes : Bytes()});
  return reply;
}

ModbusSlave* ModbusBus::find(std::uint8_t address) {
  const auto found = std::ranges::find(slaves_, address, &ModbusSlave::address);
  return found == slaves_.end() ? nullptr : &*found;
}

}  // namespace tessara
