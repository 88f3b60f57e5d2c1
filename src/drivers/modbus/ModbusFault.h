#pragma once

#include <stdexcept>
#include <string>

namespace tessara {

/// How a request to a Modbus unit can end other than by its answer.
enum class ModbusFaultKind {
  Silence,   ///< no answer before the deadline; it may still come
  Damage,    ///< the answer came with a wrong checksum, or broke off
  Noise,     ///< something came that is no frame; the answer may still come
  Foreign,   ///< a whole frame that answers another request; the answer may still come
  Refusal,   ///< the unit answered with an exception code
  Contents,  ///< the answer is whole but does not hold what was asked for
  NoLine,    ///< the port is closed, has gone, takes nothing or is never quiet
};

/// One failed request. The message is the cause alone: "answer from unit 7".
class ModbusFault : public std::runtime_error {
 public:
  ModbusFault(ModbusFaultKind kind, const std::string& cause)
      : std::runtime_error(cause), kind_(kind) {}

  [[nodiscard]] ModbusFaultKind kind() const { return kind_; }

  /// True if asking once more may help.
  [[nodiscard]] bool isWorthRepeating() const {
    return kind_ == ModbusFaultKind::Silence || kind_ == ModbusFaultKind::Damage ||
           kind_ == ModbusFaultKind::Noise;
  }

  /// True if the answer to the request may still be under way.
  [[nodiscard]] bool leavesAnswerOwed() const {
    return kind_ == ModbusFaultKind::Silence || kind_ == ModbusFaultKind::Noise ||
           kind_ == ModbusFaultKind::Foreign;
  }

 private:
  ModbusFaultKind kind_;
};

}  // namespace tessara
