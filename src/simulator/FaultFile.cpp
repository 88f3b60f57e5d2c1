#include "simulator/FaultFile.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace tessara {

namespace {

constexpr std::uint64_t kMostRequests = std::numeric_limits<std::uint64_t>::max();
constexpr std::uint64_t kLongestDelay = 3'600'000;  // an hour, in milliseconds

std::uint8_t byteOf(const JsonNode& node) {
  return static_cast<std::uint8_t>(node.number(0, 0xFF));
}

std::chrono::milliseconds delayOf(const JsonNode& node) {
  return std::chrono::milliseconds(node.number(0, kLongestDelay));
}

std::size_t lengthOf(const JsonNode& node) {
  return node.number(0, kModbusFrameLimit);
}

FaultEffect readNoise(const JsonNode& node) {
  faults::Noise noise;
  for (const JsonNode& element : node["bytes"].elements()) noise.bytes.push_back(byteOf(element));
  return noise;
}

FaultEffect readUnplug(const JsonNode& node) {
  faults::Unplug unplug;
  if (node.has("bytes")) unplug.bytes = lengthOf(node["bytes"]);
  if (node.has("replugAfter")) unplug.replugAfter = delayOf(node["replugAfter"]);
  return unplug;
}

struct Kind {
  std::string_view name;
  std::vector<std::string_view> keys;  // beside those of every fault
  FaultEffect (*read)(const JsonNode&);
};

const std::vector<Kind>& kinds() {
  using Node = JsonNode;
  static const std::vector<Kind> kinds{
      {"noReply", {}, [](const Node&) -> FaultEffect { return faults::NoReply{}; }},
      {"lateReply",
       {"delay"},
       [](const Node& node) -> FaultEffect { return faults::LateReply{delayOf(node["delay"])}; }},
      {"badChecksum", {}, [](const Node&) -> FaultEffect { return faults::BadChecksum{}; }},
      {"wrongUnit",
       {"address"},
       [](const Node& node) -> FaultEffect { return faults::WrongUnit{byteOf(node["address"])}; }},
      {"exception",
       {"code"},
       [](const Node& node) -> FaultEffect {
         return faults::ExceptionReply{byteOf(node["code"])};
       }},
      {"cutOff",
       {"bytes"},
       [](const Node& node) -> FaultEffect { return faults::CutOff{lengthOf(node["bytes"])}; }},
      {"noise", {"bytes"}, readNoise},
      {"echo", {}, [](const Node&) -> FaultEffect { return faults::Echo{}; }},
      {"unplug", {"bytes", "replugAfter"}, readUnplug},
  };
  return kinds;
}

const Kind& kindOf(const JsonNode& node) {
  const std::string name = node.text();
  const auto kind = std::ranges::find(kinds(), name, &Kind::name);
  if (kind == kinds().end()) {
    std::string known;
    for (const Kind& one : kinds()) known += (known.empty() ? "" : ", ") + std::string(one.name);
    node.fail("\"" + name + "\" is no kind of fault; these are: " + known);
  }
  return *kind;
}

FaultTrigger readTrigger(const JsonNode& node) {
  if (node.has("at") + node.has("every") + node.has("probability") != 1) {
    node.fail(R"(needs one of the keys "at", "every" and "probability")");
  }
  if (node.has("seed") && !node.has("probability")) {
    node["seed"].fail("goes with the key \"probability\" only");
  }
  if (node.has("at")) return faults::At{node["at"].number(1, kMostRequests)};
  if (node.has("every")) return faults::Every{node["every"].number(1, kMostRequests)};
  return faults::ByChance{node["probability"].real(), node["seed"].number(0, kMostRequests)};
}

}  // namespace

Fault readFault(const JsonNode& node) {
  const Kind& kind = kindOf(node["kind"]);
  std::vector<std::string_view> keys{"kind", "at", "every", "probability", "seed"};
  keys.insert(keys.end(), kind.keys.begin(), kind.keys.end());
  node.allowOnly(keys);
  Fault fault{kind.read(node), readTrigger(node)};
  try {
    checkFault(fault);
  } catch (const std::invalid_argument& error) {
    node.fail(error.what());
  }
  return fault;
}

}  // namespace tessara
