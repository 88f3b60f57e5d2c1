#pragma once

#include <chrono>
#include <cstdint>
#include <vector>

namespace tessara::bench {

using Seconds = std::chrono::duration<double>;

/// One request of a read and its reply, in characters on the wire.
struct Exchange {
  std::uint8_t function = 4;
  std::uint16_t start = 0;
  std::uint16_t count = 1;
  /// Prescribed delay before the request.
  Seconds delayBefore{0};

  [[nodiscard]] std::size_t requestCharacters() const;
  [[nodiscard]] std::size_t answerCharacters() const;
};

/// A module on the line and the exchanges of one whole read.
struct ModuleOnLine {
  const char* file;
  std::vector<Exchange> exchanges;
};

/// A healthy module, and one whose error word is read twice with two delays of 100 ms.
ModuleOnLine healthyModule();
ModuleOnLine faultyModule();

/// One character of 11 bits at the rate.
Seconds characterTime(int rate);

/// 3.5 characters of 11 bits at the rate; 1.75 ms above 19200 bit/s.
Seconds silence(int rate);

/// The time of the read on the wire at the rate: its characters, the silence or the prescribed
/// delay before each request (the first one too: what the line did before the connect is unknown),
/// and the silence that ends each request.
Seconds wireTime(const ModuleOnLine& module, int rate);

}  // namespace tessara::bench
