#include "HartWireTime.h"

#include <array>
#include <cstddef>

namespace tessara::bench {
namespace {

constexpr int rate = 1200;
constexpr double linkQuiet = 33;
constexpr double linkGrant = 8;

/// One command, in characters on the line.
struct Command {
  double request;
  double answer;
};

constexpr double preambles = 5;
constexpr double firstContactPreambles = 20;
constexpr double status = 2;

/// Delimiter, address, command, byte count and check byte.
constexpr double shortFrame = 5;
constexpr double longFrame = 9;

constexpr Command command(double answerData) {
  return {preambles + longFrame, preambles + longFrame + status + answerData};
}

/// Commands 0, 24, 20, 27 and 48.
constexpr std::array commands{
    Command{firstContactPreambles + shortFrame, preambles + shortFrame + status + 22},
    command(6),
    command(32),
    command(13),
    command(9),
};

}  // namespace

Seconds hartWireTime() {
  double characters = linkQuiet + linkGrant * (commands.size() - 1);
  for (const Command& command : commands) characters += command.request + command.answer;
  return characters * characterTime(rate) + static_cast<double>(commands.size()) * silence(rate);
}

}  // namespace tessara::bench
