#include "drivers/nfc/Iso15693.h"

#include <algorithm>
#include <string>

#include "drivers/nfc/HexText.h"
#include "drivers/nfc/NfcFault.h"

namespace tessara {

namespace {

/// The code of the maker of the tags in the modules.
constexpr std::uint8_t makerCode = 0x02;

constexpr std::size_t checksumLength = 2;

struct ErrorName {
  std::uint8_t code;
  const char* name;
};

constexpr std::array errorNames{
    ErrorName{0x01, "command not supported"}, ErrorName{0x02, "command not recognised"},
    ErrorName{0x03, "option not supported"},  ErrorName{0x0F, "unknown error"},
    ErrorName{0x10, "block not available"},   ErrorName{0x11, "block already locked"},
    ErrorName{0x12, "block locked"},          ErrorName{0x13, "write failed"},
    ErrorName{0x14, "lock failed"},
};

std::string refusalText(std::uint8_t code) {
  const auto* const known = std::find_if(errorNames.begin(), errorNames.end(),
                                         [code](const auto& row) { return row.code == code; });
  return "the tag refuses with error " + hexText(code) + ": " +
         (known == errorNames.end() ? "unknown code" : known->name);
}

NfcFault damage(const std::string& what) {
  return {NfcFaultKind::Damage, what};
}

/// Takes bytes from the front of a message.
class Reader {
 public:
  explicit Reader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  std::span<const std::uint8_t> take(std::size_t count) {
    if (bytes_.size() < count) throw damage("a request to a tag broke off");
    const auto taken = bytes_.first(count);
    bytes_ = bytes_.subspan(count);
    return taken;
  }
  std::uint8_t takeByte() { return take(1).front(); }
  [[nodiscard]] Bytes rest() const { return {bytes_.begin(), bytes_.end()}; }

 private:
  std::span<const std::uint8_t> bytes_;
};

}  // namespace

bool isAddressed(const AirRequest& request) {
  constexpr unsigned int checkedBits = airFlags::inventory | airFlags::addressed;
  return (request.flags & checkedBits) == airFlags::addressed;
}

bool isCustomCommand(std::uint8_t command) {
  return command >= 0xA0 && command <= 0xDF;
}

Bytes encodeAirRequest(const AirRequest& request) {
  Bytes bytes{request.flags, request.command};
  if (isCustomCommand(request.command)) bytes.push_back(makerCode);
  if (isAddressed(request)) bytes.insert(bytes.end(), request.uid.rbegin(), request.uid.rend());
  bytes.insert(bytes.end(), request.data.begin(), request.data.end());
  return bytes;
}

AirRequest decodeAirRequest(std::span<const std::uint8_t> bytes) {
  Reader reader(bytes);
  AirRequest request;
  request.flags = reader.takeByte();
  request.command = reader.takeByte();
  if (isCustomCommand(request.command) && reader.takeByte() != makerCode) {
    throw damage("a request to a tag carries the code of another maker");
  }
  if (isAddressed(request)) {
    const auto uid = reader.take(request.uid.size());
    std::copy(uid.begin(), uid.end(), request.uid.rbegin());
  }
  request.data = reader.rest();
  return request;
}

AirAnswer airRefusal(std::uint8_t code) {
  return {0x01, {code}};
}

Bytes encodeAirAnswer(const AirAnswer& answer) {
  Bytes bytes{answer.flags};
  bytes.insert(bytes.end(), answer.data.begin(), answer.data.end());
  return bytes;
}

AirAnswer decodeAirAnswer(std::span<const std::uint8_t> bytes) {
  if (bytes.empty()) throw damage("the answer of the tag is empty");
  return {bytes.front(), Bytes(bytes.begin() + 1, bytes.end())};
}

Bytes dataOf(const AirAnswer& answer) {
  if (!answer.isRefusal()) return answer.data;
  if (answer.data.empty()) throw NfcFault(NfcFaultKind::TagRefusal, "the tag refuses");
  throw NfcFault(NfcFaultKind::TagRefusal, refusalText(answer.data.front()));
}

std::uint16_t airChecksum(std::span<const std::uint8_t> bytes) {
  unsigned int sum = 0xFFFF;
  for (const std::uint8_t byte : bytes) {
    sum ^= byte;
    for (int bit = 0; bit < 8; ++bit) {
      sum = (sum & 1U) != 0 ? (sum >> 1U) ^ 0x8408U : sum >> 1U;
    }
  }
  return static_cast<std::uint16_t>(~sum);
}

Bytes withAirChecksum(Bytes bytes) {
  const std::uint16_t sum = airChecksum(bytes);
  bytes.push_back(static_cast<std::uint8_t>(sum));
  bytes.push_back(static_cast<std::uint8_t>(sum >> 8U));
  return bytes;
}

std::span<const std::uint8_t> withoutAirChecksum(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < checksumLength) throw damage("the answer of the tag broke off");
  const auto contents = bytes.first(bytes.size() - checksumLength);
  const std::uint16_t sum = airChecksum(contents);
  if (bytes[contents.size()] != (sum & 0xFFU) || bytes.back() != sum >> 8U) {
    throw damage("checksum error on air");
  }
  return contents;
}

}  // namespace tessara
