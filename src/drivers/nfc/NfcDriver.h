#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "drivers/PortDirectory.h"
#include "drivers/nfc/HidDevice.h"
#include "drivers/nfc/NfcSession.h"
#include "platform/CommunicationObject.h"

namespace tessara {

/// Modules in the field of an NFC reader: the USB reader under the port number that stands for it,
/// a TWN4 reader under the number of its port.
///
/// A failed read is a ReadError. Its cause is one of: no module in the field, the module taken
/// away, its mailbox switched off or busy, no answer from the module or from the reader, damage on
/// the way, an answer to something else, an exception code of the module, the reader unplugged.
/// With the default timings a read that fails takes less than two seconds.
class NfcDriver final : public NfcCommObject {
 public:
  /// `ports` and `readers` have to outlive the driver.
  NfcDriver(const PortDirectory& ports, UsbReaders& readers, const NfcTimings& timings = {});

  /// There is nothing to make ready: a connect brings all that a connection needs.
  void InitNFCObject() override {}

  /// Takes the reader. Whether a module lies in its field shows at the first read. `baudrate` is of
  /// no matter to either reader.
  bool ConnectWithSerialDevice(std::int16_t& comPort, std::int32_t& baudrate) override;
  /// The four words that the module reports behind its server id.
  DeviceWords ReadDeviceIdentifier(std::uint8_t& devAddr) override;
  /// `slave` 1 to 247, `startAddress` 0 to 65535, `count` 1 to 125; anything else is a ReadError
  /// without a word to the module. `access` is not used.
  DeviceWords ReadInputRegisters(std::int16_t slave, std::int32_t startAddress, std::int16_t count,
                                 std::int32_t access) override;
  /// Always a ReadError: modules with a tag know no HART commands.
  std::int16_t CMD48(Cmd48Reply& reply) override;
  void CloseSerialConnection() override;

  [[nodiscard]] std::string connectFailure() const override { return failure_; }

 private:
  std::string failureOfUsbReader();
  std::string failureOfTwn4(std::int16_t comPort, std::int32_t rate);
  Bytes ask(const ModbusRequest& request);

  const PortDirectory& ports_;
  UsbReaders& readers_;
  NfcTimings timings_;
  std::optional<NfcSession> session_;
  std::string port_ = "NFC reader";  // the last one chosen, as messages name it
  std::string failure_;
};

}  // namespace tessara
