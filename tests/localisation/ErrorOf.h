#pragma once

#include <functional>
#include <optional>

#include "base/RunTimeError.h"

namespace tessara::testing {

/// The run-time error that `action` ends in; nothing if it comes through.
inline std::optional<RunTimeError> errorOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error;
  }
  return std::nullopt;
}

/// Its number alone.
inline std::optional<ErrorNumber> errorNumberOf(const std::function<void()>& action) {
  const auto error = errorOf(action);
  return error ? std::optional(error->number()) : std::nullopt;
}

}  // namespace tessara::testing
