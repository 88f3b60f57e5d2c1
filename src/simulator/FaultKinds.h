#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/Fault.h"
#include "simulator/JsonNode.h"

namespace tessara {

/// A kind of fault that a module file can name.
template <class Effect>
struct FaultKind {
  std::string_view name;
  std::vector<std::string_view> keys;  ///< beside those of every fault
  Effect (*read)(const JsonNode&);
};

/// When a fault in a module file is to happen. Throws ModuleFileError.
FaultTrigger readTrigger(const JsonNode& node);

/// A byte, a list of bytes, and a time in milliseconds of up to an hour.
std::uint8_t readByte(const JsonNode& node);
Bytes readBytes(const JsonNode& node);
std::chrono::milliseconds readDelay(const JsonNode& node);

/// The fault "unplug" of an answer of up to `longest` bytes.
faults::Unplug readUnplug(const JsonNode& node, std::size_t longest);

/// What the fault at `node` does: it must be one of `kinds`. Throws ModuleFileError.
template <class Effect>
Effect readEffect(const JsonNode& node, const std::vector<FaultKind<Effect>>& kinds) {
  const JsonNode named = node["kind"];
  const std::string name = named.text();
  const auto kind = std::ranges::find(kinds, name, &FaultKind<Effect>::name);
  if (kind == kinds.end()) {
    std::string known;
    for (const auto& one : kinds) known += (known.empty() ? "" : ", ") + std::string(one.name);
    named.fail("\"" + name + "\" is no kind of fault; these are: " + known);
  }
  std::vector<std::string_view> keys{"kind", "at", "every", "probability", "seed"};
  keys.insert(keys.end(), kind->keys.begin(), kind->keys.end());
  node.allowOnly(keys);
  return kind->read(node);
}

}  // namespace tessara
