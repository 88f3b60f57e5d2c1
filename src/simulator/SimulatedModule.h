#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "simulator/Fault.h"

namespace tessara {

/// The factory-default address of modules.
inline constexpr std::uint8_t defaultAddress = 192;

/// Highest address of a module; 0 is the broadcast address.
inline constexpr std::uint8_t maxAddress = 247;

/// First input registers of what every module keeps at the same place.
inline constexpr std::uint16_t secondVersionRegister = 3;
inline constexpr std::uint16_t firmwareRegister = 4;
inline constexpr std::uint16_t serialNumberRegister = 5;  ///< 4 words, least significant first
inline constexpr std::uint16_t nameRegister = 16;         ///< 16 words, high byte first
inline constexpr std::size_t nameLength = 32;             ///< characters, two per register

/// What a module holds and how it misbehaves.
struct SimulatedModule {
  /// For people: without the padding that the registers have. May be empty.
  std::string name;

  /// The address that it answers at, 1 to maxAddress.
  std::uint8_t address = defaultAddress;

  /// The words for vendor, group, family and device.
  std::array<std::uint16_t, 4> identification{};

  /// The input registers that it has, by number.
  std::map<std::uint16_t, std::uint16_t> registers;

  std::vector<Fault> faults;
};

}  // namespace tessara
