#pragma once

#include <map>
#include <vector>

#include "linux/PortSource.h"
#include "linux/ports/PortNumbers.h"

namespace tessara::testing {

/// A memory of numbers that counts what it was told.
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

/// Ports as a test orders them; counts how often they were asked for.
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
