#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessara {

/// Words as a module delivers them, index from 0. A driver that reads 16-bit registers returns each
/// as a signed 16-bit number; one that reads bytes returns 0 to 255.
using DeviceWords = std::vector<std::int32_t>;

/// The reply buffer of HART command 48.
using Cmd48Reply = std::array<std::uint8_t, 256>;

/// The way to a module: what the control asks of a driver, whichever path it serves.
///
/// A failed read is an exception derived from std::exception whose message names port, request and
/// cause. Two operations report by value and never throw: ConnectWithSerialDevice returns false if
/// the port is absent, busy or refused, and CMD48 returns 0 if there is no reply. All calls come
/// from the control's own thread, one at a time.
class CommunicationObject {
 public:
  CommunicationObject() = default;
  CommunicationObject(const CommunicationObject&) = delete;
  CommunicationObject& operator=(const CommunicationObject&) = delete;
  virtual ~CommunicationObject() = default;

  /// The name under which hosts know the object: "ModbusCommObject" and so on.
  [[nodiscard]] virtual std::u16string_view name() const = 0;

  /// Opens port COM<comPort> at `baudrate` bit/s; 999 stands for the USB NFC reader. True if the
  /// connection is open; `connectFailure` says why it is not. An open connection is closed first.
  virtual bool ConnectWithSerialDevice(std::int16_t& comPort, std::int32_t& baudrate) = 0;

  /// The identification record: at least VendorID, GroupID, FamilyID and DeviceID.
  virtual DeviceWords ReadDeviceIdentifier(std::uint8_t& devAddr) = 0;

  /// `count` words from `startAddress` on of the module at `slave` (0 to 255).
  /// `access` is 2 on the register path and 12 on the HART path; no driver needs it.
  virtual DeviceWords ReadInputRegisters(std::int16_t slave, std::int32_t startAddress,
                                         std::int16_t count, std::int32_t access) = 0;

  /// HART command 48. Fills `reply` from index 0 and returns the number of bytes. 0 or less means
  /// that there is no reply: the module refused the command, was busy or did not answer, the answer
  /// was damaged, no connection is open, or the path carries no HART commands. `reply` is unchanged
  /// then.
  virtual std::int16_t CMD48(Cmd48Reply& reply) = 0;

  /// Closes the connection; harmless when there is none.
  virtual void CloseSerialConnection() = 0;

  /// Why the last connect returned false, in a sentence that names the port (UTF-8): not there, in
  /// use by another program, no permission. Empty after a successful connect. Meant for display;
  /// the control does not distinguish the causes.
  [[nodiscard]] virtual std::string connectFailure() const { return {}; }
};

/// Modules on a serial port or USB programming adapter.
class ModbusCommObject : public CommunicationObject {
 public:
  [[nodiscard]] std::u16string_view name() const final { return u"ModbusCommObject"; }
  /// Prepares the object; may be called any number of times.
  virtual void InitModbusObject() = 0;
  /// The last call that the object gets from a control.
  virtual void ShutDown() = 0;
};

/// Modules behind a HART modem.
class HartCommObject : public CommunicationObject {
 public:
  [[nodiscard]] std::u16string_view name() const final { return u"HartCommObject"; }
  /// Prepares the object; may be called any number of times.
  virtual void InitHartObject() = 0;
};

/// Modules in the field of an NFC reader.
class NfcCommObject : public CommunicationObject {
 public:
  [[nodiscard]] std::u16string_view name() const final { return u"NfcCommObject"; }
  /// Prepares the object; may be called any number of times.
  virtual void InitNFCObject() = 0;
};

}  // namespace tessara
