#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "CallLog.h"
#include "platform/CommunicationObject.h"

namespace tessara::testing {

/// A module as the fake communication objects give it, and the way to make an access fail.
/// Log entries: "ConnectWithSerialDevice(3, 19200)", "ReadInputRegisters(192, 4, 1, 2)" and so on.
struct FakeDevice {
  explicit FakeDevice(CallLog& callLog) : log(callLog) {}

  CallLog& log;
  bool connects = true;
  DeviceWords identifier{49, 1, 16, 161};
  /// Start address to the words that a read from there gives.
  std::map<std::int32_t, DeviceWords> registers;
  std::int16_t cmd48Count = 2;
  Cmd48Reply cmd48Reply{};
  /// Runs before each operation with its log entry; throws to make it fail.
  std::function<void(const std::string&)> before = [](const std::string&) {};
  /// May change the words that a read gives.
  std::function<void(DeviceWords&)> change = [](DeviceWords&) {};

  bool connect(std::int16_t comPort, std::int32_t baudrate);
  DeviceWords readIdentifier(std::uint8_t devAddr);
  DeviceWords readRegisters(std::int16_t slave, std::int32_t start, std::int16_t count,
                            std::int32_t access);
  std::int16_t command48(Cmd48Reply& reply);
  void close();
  void enter(const std::string& entry);
};

/// The five operations, told to a FakeDevice.
template <typename Base>
class FakeCommObject : public Base {
 public:
  explicit FakeCommObject(FakeDevice& device) : device_(device) {}
  ~FakeCommObject() override {
    device_.log.add("release " + std::string(Base::name().begin(), Base::name().end()));
  }

  bool ConnectWithSerialDevice(std::int16_t& comPort, std::int32_t& baudrate) override {
    return device_.connect(comPort, baudrate);
  }
  DeviceWords ReadDeviceIdentifier(std::uint8_t& devAddr) override {
    return device_.readIdentifier(devAddr);
  }
  DeviceWords ReadInputRegisters(std::int16_t slave, std::int32_t startAddress, std::int16_t count,
                                 std::int32_t access) override {
    return device_.readRegisters(slave, startAddress, count, access);
  }
  std::int16_t CMD48(Cmd48Reply& reply) override { return device_.command48(reply); }
  void CloseSerialConnection() override { device_.close(); }

 protected:
  FakeDevice& device() { return device_; }

 private:
  FakeDevice& device_;
};

class FakeModbusCommObject : public FakeCommObject<ModbusCommObject> {
 public:
  using FakeCommObject::FakeCommObject;
  void InitModbusObject() override { device().log.add("InitModbusObject"); }
  void ShutDown() override { device().log.add("ModbusCommObject.ShutDown"); }
};

class FakeHartCommObject : public FakeCommObject<HartCommObject> {
 public:
  using FakeCommObject::FakeCommObject;
  void InitHartObject() override { device().log.add("InitHartObject"); }
};

class FakeNfcCommObject : public FakeCommObject<NfcCommObject> {
 public:
  using FakeCommObject::FakeCommObject;
  void InitNFCObject() override { device().log.add("InitNFCObject"); }
};

}  // namespace tessara::testing
