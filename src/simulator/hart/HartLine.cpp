#include "simulator/hart/HartLine.h"

#include <utility>

namespace tessara {

std::vector<SimulatedAnswer> HartLine::receive(std::span<const std::uint8_t> bytes) {
  std::vector<SimulatedAnswer> answers;
  parser_.feed(bytes);
  while (const auto reception = parser_.next()) {
    if (auto answer = slave_.answer(*reception)) answers.push_back(std::move(*answer));
  }
  return answers;
}

std::optional<SimulatedAnswer> HartLine::silence() {
  parser_.silence();
  std::optional<SimulatedAnswer> last;
  while (const auto reception = parser_.next()) {
    if (auto answer = slave_.answer(*reception)) last = std::move(answer);
  }
  return last;
}

}  // namespace tessara
