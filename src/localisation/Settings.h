#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/RegistryHelper.h"

namespace tessara {

/// The one key, under HKEY_LOCAL_MACHINE, in which the control and the configuration program keep
/// their options.
inline constexpr std::u16string_view settingsKey = u"Software\\Orvane\\Tessara-Conf\\Settings";

/// The option `name` as a signed 16-bit number; 0 if it is not there. Text is read in the system's
/// notation with the decimal separator `separator`. A value that is no number is a type mismatch
/// (error 13), one outside the range an overflow (error 6); the message names the option and its
/// value. Nothing is cached.
std::int16_t ReadNumber(RegistryHelper& registry, std::u16string_view name,
                        std::u16string_view separator);

/// The option `name` as text; empty if it is not there. A number is written with `separator`.
std::u16string ReadText(RegistryHelper& registry, std::u16string_view name,
                        std::u16string_view separator);

/// Keeps the number of the chosen port as "COM Port"; 999 stands for the USB NFC reader.
/// An error of the store passes to the caller.
void SaveComPort(RegistryHelper& registry, std::int16_t comPort);

/// Keeps the language number, 0 to 11, as "Language". An error of the store passes to the caller.
void SaveLanguage(RegistryHelper& registry, std::int16_t language);

/// Every choice of a rate in bit/s comes by here. The rate belongs to the host's parameter set and
/// is not among the options, so nothing is kept.
void SaveBaudrate(std::int32_t baudrate);

}  // namespace tessara
