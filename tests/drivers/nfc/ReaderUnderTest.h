#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "drivers/PortDirectory.h"
#include "drivers/nfc/NfcDriver.h"
#include "drivers/nfc/NfcSample.h"
#include "drivers/nfc/NoUsbReaders.h"
#include "ports/AdapterWords.h"
#include "simulator/LinePort.h"
#include "simulator/nfc/SimulatedTwn4.h"
#include "simulator/nfc/SimulatedUsbReader.h"

namespace tessara::testing {

/// A simulated reader of either make with a module in its field, and everything a driver needs to
/// reach it.
class ReaderUnderTest : public PortDirectory {
 public:
  [[nodiscard]] virtual std::int16_t comPort() const = 0;
  virtual UsbReaders& usbReaders() = 0;
  /// Its name in messages.
  [[nodiscard]] virtual std::string name() const = 0;
  /// Lets `action` change the field.
  virtual void inField(const std::function<void(SimulatedField&)>& action) = 0;
  virtual void unplug() = 0;
  virtual void plug() = 0;

  void order(const FieldEffect& effect, const FaultTrigger& trigger) {
    inField([&](SimulatedField& field) { field.setFaults({{effect, trigger}}); });
  }
  void orderOfModule(const FaultEffect& effect, const FaultTrigger& trigger) {
    inField([&](SimulatedField& field) { field.tag().module().setFaults({{effect, trigger}}); });
  }
};

class Twn4UnderTest final : public ReaderUnderTest {
 public:
  explicit Twn4UnderTest(SimulatedNfcModule module)
      : Twn4UnderTest(std::make_unique<SimulatedTwn4>(std::move(module))) {}

  [[nodiscard]] std::int16_t comPort() const override { return 9; }
  UsbReaders& usbReaders() override { return none_; }
  [[nodiscard]] std::string name() const override { return "COM9 (" + port_.device() + ")"; }
  void inField(const std::function<void(SimulatedField&)>& action) override {
    port_.onLine([&] { action(line_.field()); });
  }
  void unplug() override { port_.unplug(); }
  void plug() override { port_.plug(); }

  [[nodiscard]] std::optional<std::string> deviceOf(std::int16_t comPort) const override {
    const std::string device = port_.device();
    return comPort == 9 && !device.empty() ? std::optional(device) : std::nullopt;
  }

 private:
  explicit Twn4UnderTest(std::unique_ptr<SimulatedTwn4> line)
      : line_(*line), port_(std::move(line)) {}

  NoUsbReaders none_;
  SimulatedTwn4& line_;
  LinePort port_;
};

class UsbReaderUnderTest final : public ReaderUnderTest {
 public:
  explicit UsbReaderUnderTest(SimulatedNfcModule module) : reader_(std::move(module)) {}

  [[nodiscard]] std::int16_t comPort() const override { return usbReaderPort; }
  UsbReaders& usbReaders() override { return reader_; }
  [[nodiscard]] std::string name() const override { return "USB NFC reader (simulated)"; }
  void inField(const std::function<void(SimulatedField&)>& action) override {
    action(reader_.field());
  }
  void unplug() override { reader_.unplug(); }
  void plug() override { reader_.plug(); }

  [[nodiscard]] std::optional<std::string> deviceOf(std::int16_t /*comPort*/) const override {
    return std::nullopt;
  }

 private:
  SimulatedUsbReader reader_;
};

enum class ReaderKind { Usb, Twn4 };

inline std::unique_ptr<ReaderUnderTest> makeReader(ReaderKind kind,
                                                   SimulatedNfcModule module = nfcSample()) {
  if (kind == ReaderKind::Usb) return std::make_unique<UsbReaderUnderTest>(std::move(module));
  return std::make_unique<Twn4UnderTest>(std::move(module));
}

inline std::string readerName(ReaderKind kind) {
  return kind == ReaderKind::Usb ? "Usb" : "Twn4";
}

}  // namespace tessara::testing
