#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace tessara {

/// Numbers of the run-time errors, as hosts expect them.
enum class ErrorNumber : std::int32_t {
  InvalidCall = 5,
  Overflow = 6,
  Subscript = 9,
  TypeMismatch = 13,
  FileNotFound = 53,
  InputPastEnd = 62,
  FileAccess = 75,
  ObjectNotSet = 91,
  InvalidPropertyValue = 380,
  FormAlreadyShown = 400,
  InvalidPicture = 481,
};

/// The only exception type with which the control reports a failed call to a host. The message
/// (UTF-8) says what was wrong with what.
class RunTimeError : public std::runtime_error {
 public:
  RunTimeError(ErrorNumber number, const std::string& message)
      : std::runtime_error(message), number_(number) {}

  [[nodiscard]] ErrorNumber number() const { return number_; }

 private:
  ErrorNumber number_;
};

}  // namespace tessara
