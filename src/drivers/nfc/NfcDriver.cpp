#include "drivers/nfc/NfcDriver.h"

#include <memory>
#include <utility>

#include "drivers/PortOpening.h"
#include "drivers/ReadError.h"
#include "drivers/modbus/ModuleRequest.h"
#include "drivers/nfc/NfcFault.h"
#include "drivers/nfc/Twn4Link.h"
#include "drivers/nfc/UsbReaderLink.h"
#include "ports/AdapterWords.h"
#include "serial/PortError.h"

namespace tessara {

NfcDriver::NfcDriver(const PortDirectory& ports, UsbReaders& readers, const NfcTimings& timings)
    : ports_(ports), readers_(readers), timings_(timings) {}

bool NfcDriver::ConnectWithSerialDevice(std::int16_t& comPort, std::int32_t& baudrate) {
  session_.reset();
  failure_ = comPort == usbReaderPort ? failureOfUsbReader() : failureOfTwn4(comPort, baudrate);
  return failure_.empty();
}

std::string NfcDriver::failureOfUsbReader() {
  port_ = "USB NFC reader";
  try {
    UsbReader reader(readers_.open(), timings_.reader);
    port_ += " (" + reader.name() + ")";
    session_.emplace(std::make_unique<UsbReaderLink>(std::move(reader)), timings_);
    return {};
  } catch (const PortError& error) {
    return port_ + " " + error.what();
  }
}

std::string NfcDriver::failureOfTwn4(std::int16_t comPort, std::int32_t rate) {
  PortOpening opening(ports_, comPort);
  std::string failure = opening.failureOf([&](const std::string& device) {
    session_.emplace(std::make_unique<Twn4Link>(device, rate, timings_.reader), timings_);
  });
  port_ = opening.port();
  return failure;
}

DeviceWords NfcDriver::ReadDeviceIdentifier(std::uint8_t& devAddr) {
  return readFrom(port_, identificationText(devAddr),
                  [&] { return identificationOf(ask(identificationRequest(devAddr))); });
}

DeviceWords NfcDriver::ReadInputRegisters(std::int16_t slave, std::int32_t startAddress,
                                          std::int16_t count, std::int32_t /*access*/) {
  return readFrom(port_, registersText(slave, startAddress, count),
                  [&] { return wordsOf(ask(registersRequest(slave, startAddress, count))); });
}

std::int16_t NfcDriver::CMD48(Cmd48Reply& /*reply*/) {
  return 0;
}

void NfcDriver::CloseSerialConnection() {
  session_.reset();
}

Bytes NfcDriver::ask(const ModbusRequest& request) {
  if (!session_) throw NfcFault(NfcFaultKind::NoReader, "no connection is open");
  return session_->ask(request);
}

}  // namespace tessara
