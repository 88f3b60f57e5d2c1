#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "drivers/PortDirectory.h"
#include "drivers/hart/HartIdentity.h"
#include "drivers/hart/HartLink.h"
#include "platform/CommunicationObject.h"

namespace tessara {

/// Modules behind a HART modem on a serial port.
///
/// A module is called once by its polling address, with command 0, and from then on by the unique
/// address in its answer, which is kept for later connections to the same port. A read on a port
/// where no module has been identified yet begins with command 0 at the last polling address, or
/// at 0.
///
/// A failed read is a ReadError. Its cause is one of: no answer, a damaged answer, a request that
/// was received badly, a response code that is an error, an answer delayed for too long, the port
/// gone. With the default timings, connecting to and identifying a silent module ends within three
/// seconds.
class HartDriver final : public HartCommObject {
 public:
  /// `ports` must outlive the driver.
  explicit HartDriver(const PortDirectory& ports, const HartOptions& options = {});

  /// Does nothing: connecting brings all that a connection needs.
  void InitHartObject() override {}

  /// `baudrate` is not used: the line has 1200 bit/s.
  bool ConnectWithSerialDevice(std::int16_t& comPort, std::int32_t& baudrate) override;

  /// Command 0 at polling address `devAddr` AND 63: manufacturer, universal revision, device type
  /// and device revision. Always a first contact, with as many preambles as any module needs.
  DeviceWords ReadDeviceIdentifier(std::uint8_t& devAddr) override;

  /// Command `startAddress`, 0 to 65535 except 31, 254 and 255: the two status bytes and then each
  /// data byte, 0 to 255 each. Warnings of the module come with the data. `slave`, `count` and
  /// `access` are not used: the module is the identified one, and the answer decides its length.
  DeviceWords ReadInputRegisters(std::int16_t slave, std::int32_t startAddress, std::int16_t count,
                                 std::int32_t access) override;

  /// Command 48: its data bytes, without the status, and their number.
  std::int16_t CMD48(Cmd48Reply& reply) override;

  void CloseSerialConnection() override;

  [[nodiscard]] std::string connectFailure() const override { return failure_; }

 private:
  /// What is known about the module on a port.
  struct KnownModule {
    std::uint8_t pollingAddress = 0;
    std::optional<HartIdentity> identity;
  };

  HartIdentity identify(std::uint8_t pollingAddress);
  HartIdentity knownIdentity();
  HartFrame answerTo(std::uint16_t command);

  const PortDirectory& ports_;
  HartLink link_;
  std::int16_t comPort_ = 0;
  std::map<std::int16_t, KnownModule> modules_;  ///< by port number
  std::string port_ = "HART port";               ///< the last one chosen, as messages name it
  std::string failure_;
};

}  // namespace tessara
