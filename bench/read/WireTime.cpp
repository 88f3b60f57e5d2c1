#include "WireTime.h"

#include <algorithm>

namespace tessara::bench {
namespace {

constexpr double bitsOfCharacter = 11;
constexpr std::uint8_t reportServerId = 17;

std::vector<Exchange> readOf(const std::vector<Exchange>& status) {
  std::vector<Exchange> all{{reportServerId, 0, 0}, {4, 4, 1}, {4, 3, 1}, {4, 5, 4}, {4, 16, 16}};
  all.insert(all.end(), status.begin(), status.end());
  return all;
}

}  // namespace

std::size_t Exchange::requestCharacters() const {
  return function == reportServerId ? 4 : 8;
}

std::size_t Exchange::answerCharacters() const {
  constexpr std::size_t identification = 15;
  return function == reportServerId ? identification : 5 + 2U * count;
}

ModuleOnLine healthyModule() {
  return {"tessara-um-161.json", readOf({{4, 80, 1}, {4, 84, 1}, {4, 81, 1}, {4, 83, 1}})};
}

ModuleOnLine faultyModule() {
  constexpr Seconds delay{0.1};
  return {"tessara-tm-151-error.json", readOf({{4, 100, 1},
                                               {4, 104, 1},
                                               {4, 102, 1, delay},
                                               {4, 102, 1, delay},
                                               {4, 101, 1},
                                               {4, 103, 1}})};
}

Seconds characterTime(int rate) {
  return Seconds(bitsOfCharacter / rate);
}

Seconds silence(int rate) {
  return rate > 19200 ? Seconds(0.00175) : 3.5 * characterTime(rate);
}

Seconds wireTime(const ModuleOnLine& module, int rate) {
  Seconds total{0};
  for (const Exchange& exchange : module.exchanges) {
    const auto characters =
        static_cast<double>(exchange.requestCharacters() + exchange.answerCharacters());
    total += std::max(silence(rate), exchange.delayBefore) + characters * characterTime(rate) +
             silence(rate);
  }
  return total;
}

}  // namespace tessara::bench
