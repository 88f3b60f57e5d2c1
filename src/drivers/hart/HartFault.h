#pragma once

#include <stdexcept>
#include <string>

namespace tessara {

/// How a HART command can end other than by its answer.
enum class HartFaultKind {
  Silence,        ///< no answer before the deadline; it may still come
  Damage,         ///< the answer was damaged, or broke off
  BadlyReceived,  ///< the module reports that it received the request badly
  Refusal,        ///< the module answered with a response code that is an error
  Delay,          ///< the module keeps announcing a delayed answer
  Contents,       ///< the answer is intact but does not hold what was asked for
  NoLine,         ///< the port is closed, gone, takes nothing or is never quiet
};

/// One failed command. The message is the cause alone: "response code 32: busy".
class HartFault : public std::runtime_error {
 public:
  HartFault(HartFaultKind kind, const std::string& cause)
      : std::runtime_error(cause), kind_(kind) {}

  [[nodiscard]] HartFaultKind kind() const { return kind_; }

  /// True if repeating the request may help.
  [[nodiscard]] bool isWorthRepeating() const {
    return kind_ == HartFaultKind::Silence || kind_ == HartFaultKind::Damage ||
           kind_ == HartFaultKind::BadlyReceived;
  }

 private:
  HartFaultKind kind_;
};

}  // namespace tessara
