#pragma once

#include <map>
#include <vector>

#include "linux/PortSource.h"
#include "linux/ports/PortNumbers.h"

namespace tessara::testing {

/// A record of numbers that counts the calls to store().
class FakePortNumbers : public PortNumbers {
 public:
  [[nodiscard]] std::map<std::int16_t, DeviceKey> load() const override { return known; }
  void store(std::int16_t number, const DeviceKey& device) override {
    known[number] = device;
    ++stores;
  }

  std::map<std::int16_t, DeviceKey> known;
  int stores = 0;
};

/// Ports set by a test; counts how often they are looked up.
class FakePorts : public PortSource {
 public:
  [[nodiscard]] std::vector<KnownPort> ports() const override {
    ++asked;
    return list;
  }

  std::vector<KnownPort> list;
  mutable int asked = 0;
};

}  // namespace tessara::testing
