#include "drivers/hart/HartIdentity.h"

#include <string>

#include "drivers/hart/HartFault.h"

namespace tessara {

namespace {

constexpr std::size_t minIdentityLength = 12;  // up to revision 5
constexpr std::uint8_t identityMark = 254;

}  // namespace

HartIdentity hartIdentityOf(std::span<const std::uint8_t> data) {
  if (data.size() < minIdentityLength) {
    throw HartFault(HartFaultKind::Contents, "answer too short, " + std::to_string(data.size()) +
                                                 " of at least " +
                                                 std::to_string(minIdentityLength) + " data bytes");
  }
  if (data[0] != identityMark) {
    throw HartFault(HartFaultKind::Contents,
                    "the identity begins with " + std::to_string(data[0]) + " instead of 254");
  }
  const auto type = static_cast<std::uint16_t>((data[1] << 8U) | data[2]);
  const auto id = (static_cast<std::uint32_t>(data[9]) << 16U) |
                  (static_cast<std::uint32_t>(data[10]) << 8U) | data[11];
  return {data[1], data[2], data[3], data[4], data[5], HartAddress::unique(type, id)};
}

}  // namespace tessara
