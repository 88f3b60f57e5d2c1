#include "simulator/FaultFile.h"

#include <stdexcept>
#include <vector>

#include "simulator/FaultKinds.h"

namespace tessara {

namespace {

const std::vector<FaultKind<FaultEffect>>& modbusFaultKinds() {
  using Node = JsonReader;
  static const std::vector<FaultKind<FaultEffect>> kinds{
      {"noReply", {}, [](const Node&) -> FaultEffect { return faults::NoReply{}; }},
      {"lateReply",
       {"delay"},
       [](const Node& node) -> FaultEffect { return faults::LateReply{readDelay(node["delay"])}; }},
      {"badChecksum", {}, [](const Node&) -> FaultEffect { return faults::BadChecksum{}; }},
      {"wrongUnit",
       {"address"},
       [](const Node& node) -> FaultEffect {
         return faults::WrongAddress{readByte(node["address"])};
       }},
      {"exception",
       {"code"},
       [](const Node& node) -> FaultEffect {
         return faults::ExceptionReply{readByte(node["code"])};
       }},
      {"cutOff",
       {"bytes"},
       [](const Node& node) -> FaultEffect {
         return faults::CutOff{node["bytes"].number(0, maxModbusFrame)};
       }},
      {"noise",
       {"bytes"},
       [](const Node& node) -> FaultEffect { return faults::Noise{readBytes(node["bytes"])}; }},
      {"echo", {}, [](const Node&) -> FaultEffect { return faults::Echo{}; }},
      {"unplug",
       {"bytes", "replugAfter"},
       [](const Node& node) -> FaultEffect { return readUnplug(node, maxModbusFrame); }},
  };
  return kinds;
}

}  // namespace

Fault readFault(const JsonReader& node) {
  Fault fault{readEffect(node, modbusFaultKinds()), readTrigger(node)};
  try {
    checkFault(fault);
  } catch (const std::invalid_argument& error) {
    node.fail(error.what());
  }
  return fault;
}

}  // namespace tessara
