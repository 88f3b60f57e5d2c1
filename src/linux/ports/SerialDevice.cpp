#include "linux/ports/SerialDevice.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace tessara {
namespace {

constexpr std::array<std::string_view, 3> kindsWithoutDevice{"rfcomm", "ttyGS", "tnt"};

template <typename Number>
std::optional<Number> hexNumber(std::string_view text) {
  Number number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, 16);
  return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

}  // namespace

std::string_view terminalKind(std::string_view name) {
  return name.substr(0, name.find_last_not_of("0123456789") + 1);
}

bool isPortWithoutDevice(std::string_view name) {
  const auto kind = terminalKind(name);
  return kind.size() < name.size() &&
         std::find(kindsWithoutDevice.begin(), kindsWithoutDevice.end(), kind) !=
             kindsWithoutDevice.end();
}

std::optional<UsbIdentity> usbIdentity(std::string_view vendor, std::string_view product,
                                       std::string_view serial, std::string_view interfaceNumber) {
  const auto vendorNumber = hexNumber<std::uint16_t>(vendor);
  const auto productNumber = hexNumber<std::uint16_t>(product);
  if (!vendorNumber || !productNumber) {
    return std::nullopt;
  }
  return UsbIdentity{*vendorNumber, *productNumber, std::string(serial),
                     hexNumber<std::uint8_t>(interfaceNumber).value_or(0)};
}

}  // namespace tessara
