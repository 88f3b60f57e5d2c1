#pragma once

#include <chrono>
#include <map>
#include <string>
#include <vector>

#include "drivers/NamedPorts.h"
#include "drivers/ScriptedSlave.h"
#include "drivers/hart/HartBytesOf.h"
#include "drivers/hart/HartDriver.h"

namespace tessara::testing {

using namespace std::chrono_literals;

/// Short times on the line, and as much time for an answer as a loaded machine may need.
inline HartTimings patient() {
  return {.character = 10us,
          .linkQuiet = 5ms,
          .linkGrant = 2ms,
          .hold = 1ms,
          .gap = 20s,
          .hostMargin = 20s,
          .noise = 20s,
          .delayedAnswer = 20s};
}

/// The same, but an answer that does not come is given up soon.
inline HartTimings brisk() {
  HartTimings timings = patient();
  timings.gap = 100ms;
  timings.hostMargin = 700ms;
  return timings;
}

/// The length of a request with preambles and without expansion bytes.
std::size_t hartRequestLength(const Bytes& begun);

/// The request in what a master has sent.
HartFrame requestIn(const Bytes& sent);

/// An answer to the request in `sent`, as it goes on the line.
Bytes answered(const Bytes& sent, std::array<std::uint8_t, 2> status,
               const HartBytes& payload = {});

/// A module that answers command 0 with its identity, other commands with these data, and
/// everything else with code 64.
Bytes moduleAnswer(const Bytes& sent, const std::map<std::uint16_t, HartBytes>& answers);

/// A driver on COM3 with a scripted module.
struct HartBench {
  /// `script` answers all but command 0, which is answered with the identity and not counted.
  explicit HartBench(ScriptedSlave::Script script, const HartTimings& timings = patient());

  /// A module that answers as moduleAnswer() does.
  explicit HartBench(std::map<std::uint16_t, HartBytes> answers,
                     const HartTimings& timings = patient());

  bool connect(std::int16_t comPort = 3) {
    std::int32_t rate = 115200;
    return driver.ConnectWithSerialDevice(comPort, rate);
  }

  DeviceWords identification(std::uint8_t address = 192) {
    return driver.ReadDeviceIdentifier(address);
  }

  DeviceWords command(std::int32_t number) { return driver.ReadInputRegisters(0, number, 1, 12); }

  /// Connected, and identified, so that the next request is the script's first.
  HartBench& identified();

  /// The requests without those for the identity.
  [[nodiscard]] std::vector<Bytes> requests() const;

  /// The name of the port in messages.
  [[nodiscard]] std::string port() const { return "COM3 (" + slave.device() + ")"; }

  ScriptedSlave slave;
  NamedPorts ports;
  HartDriver driver;
};

}  // namespace tessara::testing
