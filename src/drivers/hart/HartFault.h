#pragma once

#include <stdexcept>
#include <string>

namespace tessara {

/// How a command to a HART station can end other than by its answer.
enum class HartFaultKind {
  Silence,        ///< no answer before the deadline; it may still come
  Damage,         ///< the answer came damaged, or broke off
  BadlyReceived,  ///< the station says that it has received the request badly
  Refusal,        ///< the station answered with a response code that is an error
  Delay,          ///< the station keeps asking for patience
  Contents,       ///< the answer is whole but does not hold what was asked for
  NoLine,         ///< the port is closed, has gone, takes nothing or is never quiet
};

/// One failed command. The message is the cause alone: "response code 32: busy".
class HartFault : public std::runtime_error {
 public:
  HartFault(HartFaultKind kind, const std::string& cause)
      : std::runtime_error(cause), kind_(kind) {}

  [[nodiscard]] HartFaultKind kind() const { return kind_; }

  /// True if asking once more may help.
  [[nodiscard]] bool isWorthRepeating() const {
    return kind_ == HartFaultKind::Silence || kind_ == HartFaultKind::Damage ||
           kind_ == HartFaultKind::BadlyReceived;
  }

 private:
  HartFaultKind kind_;
};

}  // namespace tessara
