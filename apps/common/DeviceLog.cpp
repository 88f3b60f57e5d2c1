#include "common/DeviceLog.h"

#include <iostream>

namespace tessara {

void DeviceLog::add(const DeviceCall& call) {
  if (prints_) std::cerr << traceLine(call) << '\n';
  calls_.push_back(call);
  const auto* answer = std::get_if<bool>(&call.result);
  if (call.operation == "ConnectWithSerialDevice" && answer != nullptr && *answer) {
    hasConnected_ = true;
    error_.clear();
  }
  if (call.error && error_.empty()) error_ = *call.error;
}

}  // namespace tessara
