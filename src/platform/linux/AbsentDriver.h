#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include "platform/CommunicationObject.h"

namespace tessara {

/// Stands where a driver would be that this build does not have: it connects to nothing and says
/// so. `Base` is the class of the communication object.
template <class Base>
class AbsentDriver : public Base {
 public:
  /// `kind` is what the driver would be for: "HART".
  explicit AbsentDriver(std::string kind) : kind_(std::move(kind)) {}

  bool ConnectWithSerialDevice(std::int16_t& /*comPort*/, std::int32_t& /*baudrate*/) override {
    return false;
  }
  DeviceWords ReadDeviceIdentifier(std::uint8_t& /*devAddr*/) override { throw absence(); }
  DeviceWords ReadInputRegisters(std::int16_t /*slave*/, std::int32_t /*startAddress*/,
                                 std::int16_t /*count*/, std::int32_t /*access*/) override {
    throw absence();
  }
  std::int16_t CMD48(Cmd48Reply& /*reply*/) override { throw absence(); }
  void CloseSerialConnection() override {}
  [[nodiscard]] std::string connectFailure() const override {
    return "this build has no " + kind_ + " driver";
  }

 private:
  [[nodiscard]] std::runtime_error absence() const { return std::runtime_error(connectFailure()); }

  std::string kind_;
};

class AbsentHartDriver final : public AbsentDriver<HartCommObject> {
 public:
  using AbsentDriver::AbsentDriver;
  void InitHartObject() override {}
};

class AbsentNfcDriver final : public AbsentDriver<NfcCommObject> {
 public:
  using AbsentDriver::AbsentDriver;
  void InitNFCObject() override {}
};

}  // namespace tessara
