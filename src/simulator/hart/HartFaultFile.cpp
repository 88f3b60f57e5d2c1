#include "simulator/hart/HartFaultFile.h"

#include <vector>

#include "drivers/hart/HartFrame.h"
#include "drivers/hart/HartStatus.h"
#include "simulator/FaultKinds.h"

namespace tessara {

namespace {

constexpr std::size_t maxAnswerLength = 310;  // the longest frame after maxHartPreambles
constexpr std::uint64_t maxCode = 127;
constexpr std::uint64_t maxDelayed = 1000;

std::uint8_t sevenBits(const JsonReader& node) {
  return static_cast<std::uint8_t>(node.number(0, maxCode));
}

Bytes someBytes(const JsonReader& node) {
  Bytes bytes = readBytes(node);
  if (bytes.empty()) node.fail("noise must have at least 1 byte");
  return bytes;
}

/// True for "primary", false for "secondary".
bool isPrimaryMaster(const JsonReader& node) {
  if (node.text() == "primary") return true;
  if (node.text() == "secondary") return false;
  node.fail(node.shown() + R"( is not one of "primary" and "secondary")");
}

const std::vector<FaultKind<HartEffect>>& hartFaultKinds() {
  using Node = JsonReader;
  static const std::vector<FaultKind<HartEffect>> kinds{
      {"noReply", {}, [](const Node&) -> HartEffect { return faults::NoReply{}; }},
      {"lateReply",
       {"delay"},
       [](const Node& node) -> HartEffect { return faults::LateReply{readDelay(node["delay"])}; }},
      {"badChecksum", {}, [](const Node&) -> HartEffect { return faults::BadChecksum{}; }},
      {"wrongUnit",
       {"address"},
       [](const Node& node) -> HartEffect {
         return faults::WrongAddress{readByte(node["address"])};
       }},
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
      {"busy", {}, [](const Node&) -> HartEffect { return faults::ResponseCode{hart::busy}; }},
      {"communicationError",
       {"bits"},
       [](const Node& node) -> HartEffect {
         return faults::CommunicationError{sevenBits(node["bits"])};
       }},
      {"delayedAnswer",
       {"requests"},
       [](const Node& node) -> HartEffect {
         return faults::DelayedAnswer{node["requests"].number(0, maxDelayed)};
       }},
      {"coldStart", {}, [](const Node&) -> HartEffect { return faults::ColdStart{}; }},
      {"preambles",
       {"count"},
       [](const Node& node) -> HartEffect {
         return faults::Preambles{node["count"].number(0, maxHartPreambles)};
       }},
      {"cutOff",
       {"bytes"},
       [](const Node& node) -> HartEffect {
         return faults::CutOff{node["bytes"].number(1, maxAnswerLength)};
       }},
      {"gap",
       {"after", "pause"},
       [](const Node& node) -> HartEffect {
         return faults::Gap{node["after"].number(1, maxAnswerLength), readDelay(node["pause"])};
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
       [](const Node& node) -> HartEffect { return readUnplug(node, maxAnswerLength); }},
  };
  return kinds;
}

}  // namespace

HartMisbehaviour readHartFault(const JsonReader& node) {
  return {readEffect(node, hartFaultKinds()), readTrigger(node)};
}

}  // namespace tessara
