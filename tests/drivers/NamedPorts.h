#pragma once

#include <cstdint>
#include <exception>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "drivers/PortDirectory.h"

namespace tessara::testing {

/// Ports that a test names.
class NamedPorts final : public PortDirectory {
 public:
  explicit NamedPorts(std::map<std::int16_t, std::string> devices) : devices_(std::move(devices)) {}

  [[nodiscard]] std::optional<std::string> deviceOf(std::int16_t comPort) const override {
    const auto known = devices_.find(comPort);
    return known == devices_.end() ? std::nullopt : std::optional(known->second);
  }

  void put(std::int16_t comPort, const std::string& device) { devices_[comPort] = device; }

 private:
  std::map<std::int16_t, std::string> devices_;
};

/// The message of the exception that `action` throws; empty if it throws none.
template <class Action>
std::string errorOf(Action action) {
  try {
    action();
  } catch (const std::exception& error) {
    return error.what();
  }
  return {};
}

}  // namespace tessara::testing
