#pragma once

#include <exception>
#include <stdexcept>
#include <string>

namespace tessara {

/// A read from a module has failed. The message names port, request and cause:
/// "COM3 (/dev/ttyUSB0), input registers 5..8 at address 192: no answer within 500 ms, asked
/// twice".
class ReadError : public std::runtime_error {
 public:
  ReadError(const std::string& port, const std::string& request, const std::string& cause)
      : std::runtime_error(port + ", " + request + ": " + cause) {}
};

/// Returns what `read` returns; any exception of it becomes a ReadError.
template <class Read>
auto readFrom(const std::string& port, const std::string& request, Read read) {
  try {
    return read();
  } catch (const std::exception& error) {
    throw ReadError(port, request, error.what());
  }
}

}  // namespace tessara
