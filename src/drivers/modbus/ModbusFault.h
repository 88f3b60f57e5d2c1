#pragma once

#include <stdexcept>
#include <string>

namespace tessara {

/// How a Modbus request can end other than by its answer.
enum class ModbusFaultKind {
  Silence,   ///< no answer before the deadline; it may still come
  Damage,    ///< the answer came with a wrong checksum, or broke off
  Noise,     ///< something came that is not a frame; the answer may still come
  Foreign,   ///< an intact frame that answers another request; the answer may still come
  Busy,      ///< the module answered exception 5 or 6: it needs more time
  Refusal,   ///< the module answered with another exception code
  Contents,  ///< the answer is intact but does not hold what was asked for
  NoLine,    ///< the port is closed, gone, takes nothing or is never quiet
};

/// One failed request. The message is the cause alone: "answer from address 7".
class ModbusFault : public std::runtime_error {
 public:
  ModbusFault(ModbusFaultKind kind, const std::string& cause)
      : std::runtime_error(cause), kind_(kind) {}

  [[nodiscard]] ModbusFaultKind kind() const { return kind_; }

  /// True if repeating the request once may help.
  [[nodiscard]] bool isWorthRepeating() const {
    return kind_ == ModbusFaultKind::Silence || kind_ == ModbusFaultKind::Damage ||
           kind_ == ModbusFaultKind::Noise;
  }

  /// True if the answer to the request may still arrive.
  [[nodiscard]] bool leavesAnswerOwed() const {
    return kind_ == ModbusFaultKind::Silence || kind_ == ModbusFaultKind::Noise ||
           kind_ == ModbusFaultKind::Foreign;
  }

 private:
  ModbusFaultKind kind_;
};

}  // namespace tessara
