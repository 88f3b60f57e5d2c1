#include <cstddef>
#include <string_view>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "ports/RegEnum.h"
#include "ports/SerialCommKey.h"

namespace tessara {
namespace {

/// The rights to read a registry key and to change it.
constexpr std::uint32_t changeAccess = 0x3F;

/// The largest size of a value whose final zero stays in the text.
constexpr std::uint32_t uncutSize = 4;

std::u16string readString(RegistryApi& api, RegistryKey key, const std::string& name,
                          std::uint32_t size) {
  std::string data(size, '\0');
  std::uint32_t type = 0;
  if (api.RegQueryValueExA(key, name, type, &data, size) != RegistryApi::success) {
    return {};
  }
  return fromUtf8(std::string_view(data).substr(0, size > uncutSize ? size - 1 : size));
}

std::u16string readNumber(RegistryApi& api, RegistryKey key, const std::string& name,
                          std::uint32_t size) {
  std::string data(sizeof(std::uint32_t), '\0');
  std::uint32_t type = 0;
  if (api.RegQueryValueExA(key, name, type, &data, size) != RegistryApi::success) {
    return {};
  }
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < data.size(); ++i) {
    number |= std::uint32_t{static_cast<unsigned char>(data[i])} << (8U * i);
  }
  return decimalText(static_cast<std::int32_t>(number));
}

}  // namespace

std::u16string GetSerialCommValue(RegistryApi& api, const std::u16string& valueName) {
  // The query shows whether the key could be opened.
  const SerialCommKey key(api, changeAccess);
  const std::string name = toUtf8(valueName);
  std::uint32_t type = 0;
  std::uint32_t size = 0;
  if (api.RegQueryValueExA(key.handle(), name, type, nullptr, size) != RegistryApi::success) {
    throw RunTimeError(ErrorNumber::InvalidCall,
                       "the port behind \"" + name + "\" cannot be read from " + serialCommKey);
  }
  if (type == static_cast<std::uint32_t>(RegistryType::String)) {
    return readString(api, key.handle(), name, size);
  }
  if (type == static_cast<std::uint32_t>(RegistryType::Number)) {
    return readNumber(api, key.handle(), name, size);
  }
  return {};
}

}  // namespace tessara
