#include "simulator/FaultKinds.h"

#include <limits>
#include <stdexcept>

namespace tessara {

namespace {

constexpr std::uint64_t maxRequests = std::numeric_limits<std::uint64_t>::max();
constexpr std::uint64_t maxDelay = 3'600'000;  // an hour, in milliseconds

FaultTrigger uncheckedTrigger(const JsonReader& node) {
  if (node.has("at") + node.has("every") + node.has("probability") != 1) {
    node.fail(R"(needs one of the keys "at", "every" and "probability")");
  }
  if (node.has("seed") && !node.has("probability")) {
    node["seed"].fail("is valid only with the key \"probability\"");
  }
  if (node.has("at")) return faults::At{node["at"].number(1, maxRequests)};
  if (node.has("every")) return faults::Every{node["every"].number(1, maxRequests)};
  return faults::ByChance{node["probability"].real(), node["seed"].number(0, maxRequests)};
}

}  // namespace

FaultTrigger readTrigger(const JsonReader& node) {
  const FaultTrigger trigger = uncheckedTrigger(node);
  try {
    checkTrigger(trigger);
  } catch (const std::invalid_argument& error) {
    node.fail(error.what());
  }
  return trigger;
}

std::uint8_t readByte(const JsonReader& node) {
  return static_cast<std::uint8_t>(node.number(0, 0xFF));
}

Bytes readBytes(const JsonReader& node) {
  Bytes bytes;
  for (const JsonReader& element : node.elements()) bytes.push_back(readByte(element));
  return bytes;
}

std::chrono::milliseconds readDelay(const JsonReader& node) {
  return std::chrono::milliseconds(node.number(0, maxDelay));
}

faults::Unplug readUnplug(const JsonReader& node, std::size_t maxLength) {
  faults::Unplug unplug;
  if (node.has("bytes")) unplug.bytes = node["bytes"].number(0, maxLength);
  if (node.has("replugAfter")) unplug.replugAfter = readDelay(node["replugAfter"]);
  return unplug;
}

}  // namespace tessara
