#pragma once

#include <functional>
#include <optional>

#include "base/RunTimeError.h"

namespace tessara::testing {

/// The run-time error that `action` raises; nothing if it succeeds.
inline std::optional<RunTimeError> errorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error;
  }
  return std::nullopt;
}

/// Only its number.
inline std::optional<ErrorNumber> errorNumberOf(const std::function<void()>& action) {
  const auto error = errorOf(action);
  return error ? std::optional(error->number()) : std::nullopt;
}

}  // namespace tessara::testing
