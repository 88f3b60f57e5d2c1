#include "simulator/hart/HartFaultFile.h"

#include <vector>

#include "simulator/FaultKinds.h"

namespace tessara {

namespace {

constexpr std::size_t kMostPreambles = 40;
constexpr std::size_t kLongestAnswer = 310;  // the longest frame behind that many preambles
constexpr std::uint64_t kHighestCode = 127;
constexpr std::uint64_t kBusyCode = 32;
constexpr std::uint64_t kMostDelayed = 1000;

std::uint8_t sevenBits(const JsonNode& node) {
  return static_cast<std::uint8_t>(node.number(0, kHighestCode));
}

Bytes someBytes(const JsonNode& node) {
  Bytes bytes = readBytes(node);
  if (bytes.empty()) node.fail("noise must have at least 1 byte");
  return bytes;
}

/// True for "primary", false for "secondary".
bool isPrimaryMaster(const JsonNode& node) {
  if (node.text() == "primary") return true;
  if (node.text() == "secondary") return false;
  node.fail(R"(must be "primary" or "secondary", not ")" + node.text() + "\"");
}

const std::vector<FaultKind<HartEffect>>& kinds() {
  using Node = JsonNode;
  static const std::vector<FaultKind<HartEffect>> kinds{
      {"noReply", {}, [](const Node&) -> HartEffect { return faults::NoReply{}; }},
      {"lateReply",
       {"delay"},
       [](const Node& node) -> HartEffect { return faults::LateReply{readDelay(node["delay"])}; }},
      {"badChecksum", {}, [](const Node&) -> HartEffect { return faults::BadChecksum{}; }},
      {"wrongUnit",
       {"address"},
       [](const Node& node) -> HartEffect { return faults::WrongUnit{readByte(node["address"])}; }},
      {"wrongCommand",
       {"command"},
       [](const Node& node) -> HartEffect {
         return faults::WrongCommand{readByte(node["command"])};
       }},
      {"exception",
       {"code"},
       [](const Node& node) -> HartEffect {
         return faults::ResponseCode{sevenBits(node["code"])};
       }},
      {"busy", {}, [](const Node&) -> HartEffect { return faults::ResponseCode{kBusyCode}; }},
      {"communicationError",
       {"bits"},
       [](const Node& node) -> HartEffect {
         return faults::CommunicationError{sevenBits(node["bits"])};
       }},
      {"delayedAnswer",
       {"requests"},
       [](const Node& node) -> HartEffect {
         return faults::DelayedAnswer{node["requests"].number(0, kMostDelayed)};
       }},
      {"coldStart", {}, [](const Node&) -> HartEffect { return faults::ColdStart{}; }},
      {"preambles",
       {"count"},
       [](const Node& node) -> HartEffect {
         return faults::Preambles{node["count"].number(0, kMostPreambles)};
       }},
      {"cutOff",
       {"bytes"},
       [](const Node& node) -> HartEffect {
         return faults::CutOff{node["bytes"].number(1, kLongestAnswer)};
       }},
      {"gap",
       {"after", "pause"},
       [](const Node& node) -> HartEffect {
         return faults::Gap{node["after"].number(1, kLongestAnswer), readDelay(node["pause"])};
       }},
      {"noise",
       {"bytes"},
       [](const Node& node) -> HartEffect { return faults::Noise{someBytes(node["bytes"])}; }},
      {"trailingNoise",
       {"bytes"},
       [](const Node& node) -> HartEffect {
         return faults::TrailingNoise{someBytes(node["bytes"])};
       }},
      {"echo", {}, [](const Node&) -> HartEffect { return faults::Echo{}; }},
      {"otherMaster", {}, [](const Node&) -> HartEffect { return faults::OtherMaster{}; }},
      {"burst",
       {"master"},
       [](const Node& node) -> HartEffect {
         return faults::BurstFrame{isPrimaryMaster(node["master"])};
       }},
      {"unplug",
       {"bytes", "replugAfter"},
       [](const Node& node) -> HartEffect { return readUnplug(node, kLongestAnswer); }},
  };
  return kinds;
}

}  // namespace

HartMisbehaviour readHartFault(const JsonNode& node) {
  return {readEffect(node, kinds()), readTrigger(node)};
}

}  // namespace tessara
