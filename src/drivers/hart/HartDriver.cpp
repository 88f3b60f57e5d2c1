#include "drivers/hart/HartDriver.h"

#include <algorithm>
#include <exception>
#include <stdexcept>

#include "drivers/PortOpening.h"
#include "drivers/ReadError.h"

namespace tessara {

namespace {

constexpr std::uint16_t readIdentity = 0;
constexpr std::uint16_t readStatus = 48;
constexpr std::int32_t maxCommand = 65535;

/// What a module behind lossy equipment may need before it is known.
constexpr std::size_t firstContactPreambles = 20;
constexpr std::size_t minPreambles = 5;

std::string requestText(const HartFrame& request) {
  return "command " + std::to_string(request.commandNumber()) + " at " +
         hartAddressText(request.address);
}

std::uint16_t checkedCommand(std::int32_t number) {
  const bool isCommand = number >= 0 && number <= maxCommand && number != extendedHartCommand &&
                         number != 254 && number != 255;
  if (!isCommand) {
    throw std::out_of_range("commands have the numbers 0 to 65535 except 31, 254 and 255");
  }
  return static_cast<std::uint16_t>(number);
}

std::size_t preamblesFor(const HartIdentity& identity) {
  return std::clamp<std::size_t>(identity.preambles, minPreambles, maxHartPreambles);
}

}  // namespace

HartDriver::HartDriver(const PortDirectory& ports, const HartOptions& options)
    : ports_(ports), link_(options) {}

bool HartDriver::ConnectWithSerialDevice(std::int16_t& comPort, std::int32_t& /*baudrate*/) {
  link_.close();
  comPort_ = comPort;
  PortOpening opening(ports_, comPort);
  failure_ = opening.failureOf([this](const std::string& device) { link_.open(device); });
  port_ = opening.port();
  return failure_.empty();
}

DeviceWords HartDriver::ReadDeviceIdentifier(std::uint8_t& devAddr) {
  const HartIdentity identity = identify(devAddr & HartAddress::maxPollingAddress);
  return {identity.manufacturer, identity.universalRevision, identity.deviceType,
          identity.deviceRevision};
}

DeviceWords HartDriver::ReadInputRegisters(std::int16_t /*slave*/, std::int32_t startAddress,
                                           std::int16_t /*count*/, std::int32_t /*access*/) {
  const auto command = readFrom(port_, "command " + std::to_string(startAddress),
                                [startAddress] { return checkedCommand(startAddress); });
  const HartFrame answer = answerTo(command);
  DeviceWords words{answer.data[0], answer.data[1]};
  words.insert(words.end(), answer.payload().begin(), answer.payload().end());
  return words;
}

std::int16_t HartDriver::CMD48(Cmd48Reply& reply) {
  try {
    const HartFrame answer = answerTo(readStatus);
    const auto data = answer.payload();
    std::copy(data.begin(), data.end(), reply.begin());
    return static_cast<std::int16_t>(data.size());
  } catch (const std::exception&) {
    return 0;
  }
}

void HartDriver::CloseSerialConnection() {
  link_.close();
}

/// Asks which module has this polling address, and keeps the answer for the port.
HartIdentity HartDriver::identify(std::uint8_t pollingAddress) {
  KnownModule& module = modules_[comPort_];
  module = {pollingAddress, std::nullopt};
  const HartFrame request = hartRequest(HartAddress::polling(pollingAddress), readIdentity);
  module.identity = readFrom(port_, requestText(request), [&] {
    return hartIdentityOf(link_.ask(request, firstContactPreambles).payload());
  });
  return *module.identity;
}

HartIdentity HartDriver::knownIdentity() {
  const KnownModule& module = modules_[comPort_];
  return module.identity ? *module.identity : identify(module.pollingAddress);
}

/// The answer of the port's module to a command without data.
HartFrame HartDriver::answerTo(std::uint16_t command) {
  const HartIdentity identity = knownIdentity();
  const HartFrame request = hartRequest(identity.address, command);
  return readFrom(port_, requestText(request),
                  [&] { return link_.ask(request, preamblesFor(identity)); });
}

}  // namespace tessara
