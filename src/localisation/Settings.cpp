#include "localisation/Settings.h"

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace tessara {
namespace {

Variant readOption(RegistryHelper& registry, std::u16string_view name) {
  return registry.GetValue(registry.HKeyLocalMachine(), std::u16string(settingsKey),
                           std::u16string(name));
}

void saveNumber(RegistryHelper& registry, std::u16string_view name, std::int32_t number) {
  registry.SetValue(registry.HKeyLocalMachine(), std::u16string(settingsKey), std::u16string(name),
                    Variant{std::int64_t{number}}, registry.ValueTypeNumber());
}

}  // namespace

std::int16_t ReadNumber(RegistryHelper& registry, std::u16string_view name,
                        std::u16string_view separator) {
  const Variant value = readOption(registry, name);
  try {
    return toInt16(value, separator);
  } catch (const RunTimeError& error) {
    throw RunTimeError(error.number(), "The setting " + toUtf8(name) + ": " + error.what());
  }
}

std::u16string ReadText(RegistryHelper& registry, std::u16string_view name,
                        std::u16string_view separator) {
  return toText(readOption(registry, name), separator);
}

void SaveComPort(RegistryHelper& registry, std::int16_t comPort) {
  saveNumber(registry, u"COM Port", comPort);
}

void SaveLanguage(RegistryHelper& registry, std::int16_t language) {
  saveNumber(registry, u"Language", language);
}

void SaveBaudrate(std::int32_t /*baudrate*/) {}

}  // namespace tessara
