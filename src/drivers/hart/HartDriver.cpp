#include "drivers/hart/HartDriver.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

#include "drivers/PortOpening.h"
#include "drivers/ReadError.h"

namespace tessara {

namespace {

constexpr std::uint16_t kReadIdentity = 0;
constexpr std::uint16_t kReadStatus = 48;
constexpr std::int32_t kLastCommand = 65535;

/// What a module behind lossy equipment may need before it is known.
constexpr std::size_t kFirstContactPreambles = 20;
constexpr std::size_t kFewestPreambles = 5;
constexpr std::size_t kMostPreambles = 40;

std::string requestText(const HartFrame& request) {
  return "command " + std::to_string(request.commandNumber()) +
         (request.address.isLong() ? " of " : " at ") + hartStationText(request.address);
}

std::uint16_t checkedCommand(std::int32_t number) {
  const bool isCommand = number >= 0 && number <= kLastCommand && number != kHartExtendedCommand &&
                         number != 254 && number != 255;
  if (!isCommand) {
    throw std::out_of_range("commands have the numbers 0 to 65535 without 31, 254 and 255");
  }
  return static_cast<std::uint16_t>(number);
}

std::size_t preamblesFor(const HartIdentity& identity) {
  return std::clamp<std::size_t>(identity.preambles, kFewestPreambles, kMostPreambles);
}

}  // namespace

HartDriver::HartDriver(const PortDirectory& ports, HartOptions options)
    : ports_(ports), link_(std::move(options)) {}

bool HartDriver::ConnectWithSerialDevice(std::int16_t& comPort, std::int32_t& /*baudrate*/) {
  link_.close();
  comPort_ = comPort;
  PortOpening opening(ports_, comPort);
  failure_ = opening.failureOf([this](const std::string& device) { link_.open(device); });
  port_ = opening.port();
  return failure_.empty();
}

DeviceWords HartDriver::ReadDeviceIdentifier(std::uint8_t& devAddr) {
  const HartIdentity identity = identify(devAddr & HartAddress::kLastPollingAddress);
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
  const HartFrame answer = answerTo(kReadStatus);
  const auto data = answer.payload();
  std::copy(data.begin(), data.end(), reply.begin());
  return static_cast<std::int16_t>(data.size());
}

void HartDriver::CloseSerialConnection() {
  link_.close();
}

/// Asks who is at this polling address, and keeps the answer for the port.
HartIdentity HartDriver::identify(std::uint8_t pollingAddress) {
  Station& station = stations_[comPort_];
  station = {pollingAddress, std::nullopt};
  const HartFrame request = hartRequest(HartAddress::polling(pollingAddress), kReadIdentity);
  station.identity = readFrom(port_, requestText(request), [&] {
    return hartIdentityOf(link_.ask(request, kFirstContactPreambles).payload());
  });
  return *station.identity;
}

HartIdentity HartDriver::knownIdentity() {
  const Station& station = stations_[comPort_];
  return station.identity ? *station.identity : identify(station.pollingAddress);
}

/// The answer of the port's module to a command without data.
HartFrame HartDriver::answerTo(std::uint16_t command) {
  const HartIdentity identity = knownIdentity();
  const HartFrame request = hartRequest(identity.address, command);
  return readFrom(port_, requestText(request),
                  [&] { return link_.ask(request, preamblesFor(identity)); });
}

}  // namespace tessara
