#include "drivers/TracedObject.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <exception>
#include <utility>

#include "base/Text.h"

namespace tessara {

namespace {

/// Forwards the operations that all communication objects share, and reports each call.
template <class Base>
class TracedObject : public Base {
 public:
  TracedObject(std::shared_ptr<Base> object, CallSink sink)
      : object_(std::move(object)), sink_(std::move(sink)) {}

  bool ConnectWithSerialDevice(std::int16_t& comPort, std::int32_t& baudrate) override {
    return report<bool>("ConnectWithSerialDevice", {comPort, baudrate},
                        [&] { return object_->ConnectWithSerialDevice(comPort, baudrate); });
  }

  DeviceWords ReadDeviceIdentifier(std::uint8_t& devAddr) override {
    return report<DeviceWords>("ReadDeviceIdentifier", {devAddr},
                               [&] { return object_->ReadDeviceIdentifier(devAddr); });
  }

  DeviceWords ReadInputRegisters(std::int16_t slave, std::int32_t startAddress, std::int16_t count,
                                 std::int32_t access) override {
    return report<DeviceWords>("ReadInputRegisters", {slave, startAddress, count, access}, [&] {
      return object_->ReadInputRegisters(slave, startAddress, count, access);
    });
  }

  std::int16_t CMD48(Cmd48Reply& reply) override {
    std::int16_t count = 0;
    report<DeviceWords>("CMD48", {}, [&] {
      count = object_->CMD48(reply);
      const auto shown = std::clamp<std::ptrdiff_t>(count, 0, std::ssize(reply));
      return DeviceWords(reply.begin(), reply.begin() + shown);
    });
    return count;
  }

  void CloseSerialConnection() override {
    reportOf("CloseSerialConnection", [&] { object_->CloseSerialConnection(); });
  }

  [[nodiscard]] std::string connectFailure() const override { return object_->connectFailure(); }

 protected:
  /// Makes the call `action`, reports it as `operation`, and returns its result.
  template <class Value, class Action>
  Value report(const char* operation, std::vector<std::int64_t> arguments, Action action) const {
    DeviceCall call{toUtf8(this->name()), operation, std::move(arguments), {}, std::nullopt, 0};
    const auto begun = std::chrono::steady_clock::now();
    const auto finish = [&] {
      const std::chrono::duration<double, std::milli> taken =
          std::chrono::steady_clock::now() - begun;
      call.milliseconds = taken.count();
      sink_(call);
    };
    try {
      Value value = action();
      call.result = value;
      finish();
      return value;
    } catch (const std::exception& error) {
      call.error = error.what();
      finish();
      throw;
    }
  }

  /// The same for a call without arguments and without a result.
  template <class Action>
  void reportOf(const char* operation, Action action) const {
    report<std::monostate>(operation, {}, [&] {
      action();
      return std::monostate{};
    });
  }

  [[nodiscard]] Base& object() const { return *object_; }

 private:
  std::shared_ptr<Base> object_;
  CallSink sink_;
};

class TracedModbusObject final : public TracedObject<ModbusCommObject> {
 public:
  using TracedObject::TracedObject;
  void InitModbusObject() override {
    reportOf("InitModbusObject", [this] { object().InitModbusObject(); });
  }
  void ShutDown() override {
    reportOf("ShutDown", [this] { object().ShutDown(); });
  }
};

class TracedHartObject final : public TracedObject<HartCommObject> {
 public:
  using TracedObject::TracedObject;
  void InitHartObject() override {
    reportOf("InitHartObject", [this] { object().InitHartObject(); });
  }
};

class TracedNfcObject final : public TracedObject<NfcCommObject> {
 public:
  using TracedObject::TracedObject;
  void InitNFCObject() override {
    reportOf("InitNFCObject", [this] { object().InitNFCObject(); });
  }
};

template <class Numbers>
std::string listText(const Numbers& numbers) {
  std::string text;
  for (const auto number : numbers) {
    text += (text.empty() ? "" : ", ") + std::to_string(number);
  }
  return text;
}

/// With three decimals after a point, whatever the locale.
std::string durationText(double milliseconds) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), milliseconds,
                                 std::chars_format::fixed, 3);
  return {text.data(), end.ptr};
}

struct ResultText {
  std::string operator()(std::monostate /*nothing*/) const { return {}; }
  std::string operator()(bool value) const { return value ? " = true" : " = false"; }
  std::string operator()(const DeviceWords& words) const { return " = [" + listText(words) + "]"; }
};

}  // namespace

std::string traceLine(const DeviceCall& call) {
  const std::string outcome =
      call.error ? " failed: " + *call.error : std::visit(ResultText{}, call.result);
  return call.object + "." + call.operation + "(" + listText(call.arguments) + ")" + outcome +
         "  (" + durationText(call.milliseconds) + " ms)";
}

std::shared_ptr<ModbusCommObject> traced(std::shared_ptr<ModbusCommObject> object, CallSink sink) {
  return std::make_shared<TracedModbusObject>(std::move(object), std::move(sink));
}

std::shared_ptr<HartCommObject> traced(std::shared_ptr<HartCommObject> object, CallSink sink) {
  return std::make_shared<TracedHartObject>(std::move(object), std::move(sink));
}

std::shared_ptr<NfcCommObject> traced(std::shared_ptr<NfcCommObject> object, CallSink sink) {
  return std::make_shared<TracedNfcObject>(std::move(object), std::move(sink));
}

}  // namespace tessara
