#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "json/JsonReader.h"
#include "simulator/Fault.h"

namespace tessara {

/// A kind of fault that a module file can name.
template <class Effect>
struct FaultKind {
  std::string_view name;
  std::vector<std::string_view> keys;  ///< in addition to those of every fault
  Effect (*read)(const JsonReader&);
};

/// When a fault in a module file happens. Throws JsonError.
FaultTrigger readTrigger(const JsonReader& node);

/// A byte, a list of bytes, and a time in milliseconds of up to an hour.
std::uint8_t readByte(const JsonReader& node);
Bytes readBytes(const JsonReader& node);
std::chrono::milliseconds readDelay(const JsonReader& node);

/// The fault "unplug" of an answer of up to `maxLength` bytes.
faults::Unplug readUnplug(const JsonReader& node, std::size_t maxLength);

/// The effect of the fault at `node`, which must be one of `kinds`. Throws JsonError.
template <class Effect>
Effect readEffect(const JsonReader& node, const std::vector<FaultKind<Effect>>& kinds) {
  const JsonReader named = node["kind"];
  const std::string name = named.text();
  const auto kind = std::ranges::find(kinds, name, &FaultKind<Effect>::name);
  if (kind == kinds.end()) {
    std::string known;
    for (const auto& one : kinds) known += (known.empty() ? "" : ", ") + std::string(one.name);
    named.fail(named.shown() + " is not a kind of fault; these are: " + known);
  }
  std::vector<std::string_view> keys{"kind", "at", "every", "probability", "seed"};
  keys.insert(keys.end(), kind->keys.begin(), kind->keys.end());
  node.allowOnly(keys);
  return kind->read(node);
}

}  // namespace tessara
