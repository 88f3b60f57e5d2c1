#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "simulator/ModbusCodec.h"
#include "simulator/hart/HartEffect.h"

namespace tessara {

/// The commands whose answers have keys of their own in a module file.
namespace hart {
inline constexpr std::uint16_t readIdentity = 0;
inline constexpr std::uint16_t readIdentityByTag = 11;
inline constexpr std::uint16_t readName = 20;
inline constexpr std::uint16_t readIdentityByName = 21;
inline constexpr std::uint16_t readFirmware = 24;
inline constexpr std::uint16_t readSerialNumber = 27;
inline constexpr std::uint16_t readStatus = 48;
}  // namespace hart

/// Bytes of the short tag: eight characters of six bits each.
inline constexpr std::size_t packedTagLength = 6;

/// Preambles that a module asks for and sends unless its file says otherwise.
inline constexpr std::size_t defaultHartPreambles = 5;

/// What a module behind a HART modem holds and how it misbehaves.
struct SimulatedHartModule {
  /// For people: without the padding that the module itself has. May be empty.
  std::string name;

  /// 0 to 63.
  std::uint8_t pollingAddress = 0;

  /// The data of its answer to command 0, at least up to the device id in bytes 9 to 11.
  Bytes identity;

  /// The data of its answers to further commands, by number. Others are not implemented.
  std::map<std::uint16_t, Bytes> answers;

  /// The short tag by which command 11 calls it.
  std::array<std::uint8_t, packedTagLength> tag{};

  /// The second status byte of every answer.
  std::uint8_t deviceStatus = 0;

  /// Preambles before its answers.
  std::size_t preambles = defaultHartPreambles;

  std::vector<HartMisbehaviour> faults;
};

}  // namespace tessara
