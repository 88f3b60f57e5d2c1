#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/RegistryHelper.h"

namespace tessara {

/// The key under HKEY_LOCAL_MACHINE in which the control and the configuration program store their
/// options.
inline constexpr std::u16string_view settingsKey = u"Software\\Orvane\\Tessara-Conf\\Settings";

/// The option `name` as a signed 16-bit number; 0 if it is missing. Text is read in the system's
/// notation with the decimal separator `separator`. A value that is not a number is a type mismatch
/// (error 13), one out of range an overflow (error 6); the message names the option and its value.
/// Nothing is cached.
std::int16_t ReadNumber(RegistryHelper& registry, std::u16string_view name,
                        std::u16string_view separator);

/// The option `name` as text; empty if it is missing. A number is written with `separator`.
std::u16string ReadText(RegistryHelper& registry, std::u16string_view name,
                        std::u16string_view separator);

/// Stores the number of the selected port as "COM Port"; 999 stands for the USB NFC reader.
/// An error of the store passes to the caller.
void SaveComPort(RegistryHelper& registry, std::int16_t comPort);

/// Stores the language number, 0 to 11, as "Language". An error of the store passes to the caller.
void SaveLanguage(RegistryHelper& registry, std::int16_t language);

/// Called for each selection of a rate in bit/s. The rate belongs to the host's parameter set and
/// is not an option, so nothing is stored.
void SaveBaudrate(std::int32_t baudrate);

}  // namespace tessara
