#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "base/RunTimeError.h"

namespace tessara {

/// Codes of failed requests: those of JSON-RPC 2.0, and the one for run-time errors of the control.
enum class RpcCode : int {
  InvalidJson = -32700,
  InvalidRequest = -32600,
  UnknownMethod = -32601,
  WrongParameters = -32602,
  Internal = -32603,
  RunTime = -32000,
};

/// A request failed. The message (UTF-8) says what was wrong with what.
class RpcError : public std::runtime_error {
 public:
  RpcError(RpcCode code, const std::string& message) : std::runtime_error(message), code_(code) {}
  explicit RpcError(const RunTimeError& error)
      : std::runtime_error(error.what()), code_(RpcCode::RunTime), number_(error.number()) {}

  [[nodiscard]] RpcCode code() const { return code_; }
  /// The number of a run-time error.
  [[nodiscard]] std::optional<ErrorNumber> number() const { return number_; }

 private:
  RpcCode code_;
  std::optional<ErrorNumber> number_;
};

/// The error of wrong parameters.
inline RpcError wrongParameters(const std::string& message) {
  return {RpcCode::WrongParameters, message};
}

/// A name from outside as it stands in a message: in quotes, its end cut off where it is long.
inline std::string inQuotes(std::string_view name) {
  constexpr std::size_t maxShown = 80;
  return '"' + std::string(name.substr(0, maxShown)) + (name.size() > maxShown ? "...\"" : "\"");
}

}  // namespace tessara
