#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "drivers/PortDirectory.h"
#include "drivers/nfc/HidDevice.h"
#include "drivers/nfc/NfcSession.h"
#include "platform/CommunicationObject.h"

namespace tessara {

/// Modules in the field of an NFC reader: the USB reader under the port number reserved for it, a
/// TWN4 reader under the number of its port.
///
/// A failed read is a ReadError. Its cause is one of: no module in the field, the module
/// removed, its mailbox switched off or busy, no answer from the module or the reader, damage on
/// the way, an answer to something else, an exception code of the module, the reader unplugged.
/// With the default timings a read that fails takes less than two seconds.
class NfcDriver final : public NfcCommObject {
 public:
  /// `ports` and `readers` must outlive the driver.
  NfcDriver(const PortDirectory& ports, UsbReaders& readers, const NfcTimings& timings = {});

  /// Does nothing: connecting brings all that a connection needs.
  void InitNFCObject() override {}

  /// Opens the reader. Whether a module is in its field shows at the first read. `baudrate` makes
  /// no difference to either reader.
  bool ConnectWithSerialDevice(std::int16_t& comPort, std::int32_t& baudrate) override;
  /// The four words that follow the server id in the module's report.
  DeviceWords ReadDeviceIdentifier(std::uint8_t& devAddr) override;
  /// `slave` 1 to 247, `startAddress` 0 to 65535, `count` 1 to 125; anything else is a ReadError,
  /// and nothing is sent. `access` is not used.
  DeviceWords ReadInputRegisters(std::int16_t slave, std::int32_t startAddress, std::int16_t count,
                                 std::int32_t access) override;
  /// Always 0: modules with an NFC tag have no HART commands.
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
