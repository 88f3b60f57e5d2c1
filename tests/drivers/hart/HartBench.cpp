#include "drivers/hart/HartBench.h"

#include <algorithm>
#include <stdexcept>

namespace tessara::testing {

namespace {

bool asksForIdentity(const Bytes& sent) {
  return requestIn(sent).command == 0;
}

/// `script` for a module that answers command 0 itself.
ScriptedSlave::Script behindIdentity(ScriptedSlave::Script script) {
  return [script = std::move(script), asked = std::size_t{0}](const Bytes& sent,
                                                              std::size_t) mutable -> Reply {
    if (asksForIdentity(sent)) return {{0ms, moduleAnswer(sent, {})}};
    return script(sent, asked++);
  };
}

}  // namespace

std::size_t hartRequestLength(const Bytes& begun) {
  constexpr std::uint8_t longBit = 0x80;
  const auto delimiter = std::find_if(begun.begin(), begun.end(), [](auto b) { return b != 0xFF; });
  if (delimiter == begun.end()) return begun.size() + 1;
  const auto head = static_cast<std::size_t>(delimiter - begun.begin());
  const std::size_t count = head + ((*delimiter & longBit) != 0 ? 7 : 3);
  return count < begun.size() ? count + begun[count] + 2 : begun.size() + 1;
}

HartFrame requestIn(const Bytes& sent) {
  const auto found = receptionsOf(sent);
  if (found.size() != 1 || found[0].damage != HartDamage::None) {
    throw std::runtime_error("the master has sent no sound frame");
  }
  return found[0].frame;
}

Bytes answered(const Bytes& sent, std::array<std::uint8_t, 2> status, const HartBytes& payload) {
  return encodeHart(hartAnswer(requestIn(sent), status, payload), 5);
}

Bytes moduleAnswer(const Bytes& sent, const std::map<std::uint16_t, HartBytes>& answers) {
  const std::uint16_t number = requestIn(sent).commandNumber();
  if (number == 0) return answered(sent, {0, 0}, exampleIdentity());
  const auto known = answers.find(number);
  return known == answers.end() ? answered(sent, {64, 0}) : answered(sent, {0, 0}, known->second);
}

HartBench::HartBench(ScriptedSlave::Script script, const HartTimings& timings)
    : slave(behindIdentity(std::move(script)), hartRequestLength),
      ports({{3, slave.device()}}),
      driver(ports, {.timings = timings}) {}

HartBench::HartBench(std::map<std::uint16_t, HartBytes> answers, const HartTimings& timings)
    : HartBench(
          [answers = std::move(answers)](const Bytes& sent, std::size_t) -> Reply {
            return {{0ms, moduleAnswer(sent, answers)}};
          },
          timings) {}

HartBench& HartBench::identified() {
  if (!connect()) throw std::runtime_error(driver.connectFailure());
  identification();
  return *this;
}

std::vector<Bytes> HartBench::requests() const {
  std::vector<Bytes> requests = slave.requests();
  std::erase_if(requests, asksForIdentity);
  return requests;
}

}  // namespace tessara::testing
