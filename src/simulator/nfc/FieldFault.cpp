#include "simulator/nfc/FieldFault.h"

#include <string>
#include <vector>

#include "simulator/FaultKinds.h"

namespace tessara {

namespace {

std::optional<std::chrono::milliseconds> timeIn(const JsonReader& node, const std::string& key) {
  return node.has(key) ? std::optional(readDelay(node[key])) : std::nullopt;
}

const std::vector<FaultKind<FieldEffect>>& fieldFaultKinds() {
  using Node = JsonReader;
  using namespace fieldFaults;
  static const std::vector<FaultKind<FieldEffect>> kinds{
      {"tagAbsent", {}, [](const Node&) -> FieldEffect { return TagAbsent{}; }},
      {"tagLeaves",
       {"returnAfter"},
       [](const Node& node) -> FieldEffect { return TagLeaves{timeIn(node, "returnAfter")}; }},
      {"airChecksum", {}, [](const Node&) -> FieldEffect { return AirChecksum{}; }},
      {"readerError",
       {"code"},
       [](const Node& node) -> FieldEffect {
         return ReaderError{static_cast<std::uint8_t>(node["code"].number(1, 0xFF))};
       }},
      {"readerSilent", {}, [](const Node&) -> FieldEffect { return ReaderSilent{}; }},
      {"mailboxBusy",
       {"for"},
       [](const Node& node) -> FieldEffect { return MailboxBusy{timeIn(node, "for")}; }},
      {"mailboxOff", {}, [](const Node&) -> FieldEffect { return MailboxOff{}; }},
      {"moduleAsleep",
       {"for"},
       [](const Node& node) -> FieldEffect { return ModuleAsleep{timeIn(node, "for")}; }},
  };
  return kinds;
}

}  // namespace

FieldFault readFieldFault(const JsonReader& node) {
  return {readEffect(node, fieldFaultKinds()), readTrigger(node)};
}

}  // namespace tessara
