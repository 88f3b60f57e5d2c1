#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/CommunicationObject.h"

namespace tessara {

/// One call to a communication object, after it has returned. Texts are UTF-8.
struct DeviceCall {
  /// What a call returns: nothing, a truth value, or the words of a read. For CMD48 these are the
  /// bytes of its reply, as many as it counts: none if the module gave no usable answer.
  using Result = std::variant<std::monostate, bool, DeviceWords>;

  std::string object;     ///< "ModbusCommObject"
  std::string operation;  ///< "ReadInputRegisters"
  std::vector<std::int64_t>
      arguments;                     ///< as they were before the call, without the array of CMD48
  Result result;                     ///< nothing if the call failed
  std::optional<std::string> error;  ///< the message of the exception, if there was one
  double milliseconds = 0;
};

/// Called after each call, on the control's thread. Must not throw.
using CallSink = std::function<void(const DeviceCall&)>;

/// `call` as a line of text, without a line end:
/// "ModbusCommObject.ReadInputRegisters(192, 5, 2, 2) = [1, -2]  (12.345 ms)".
std::string traceLine(const DeviceCall& call);

/// The same object, with each call reported to `sink`. Arguments, results and exceptions pass
/// through unchanged; only `name` and `connectFailure`, which reach no device, are not reported.
std::shared_ptr<ModbusCommObject> traced(std::shared_ptr<ModbusCommObject> object, CallSink sink);
std::shared_ptr<HartCommObject> traced(std::shared_ptr<HartCommObject> object, CallSink sink);
std::shared_ptr<NfcCommObject> traced(std::shared_ptr<NfcCommObject> object, CallSink sink);

}  // namespace tessara
