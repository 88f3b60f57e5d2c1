#include "drivers/nfc/Twn4.h"

#include <algorithm>
#include <array>

#include "drivers/nfc/HexText.h"
#include "drivers/nfc/NfcFault.h"

namespace tessara::twn4 {

namespace {

constexpr std::uint8_t maxBytes = 0xFF;
constexpr std::uint8_t maxUidLength = 16;
constexpr std::size_t uidBits = 64;

constexpr std::array statusNames{
    "no error",          "unknown function", "missing parameter",
    "unused parameters", "invalid function", "parser error",
};

NfcFault damage() {
  return {NfcFaultKind::Damage, "malformed answer from the reader"};
}

Bytes requestOf(Function function, std::initializer_list<std::uint8_t> parameters = {}) {
  Bytes bytes{function.group, function.number};
  bytes.insert(bytes.end(), parameters);
  return bytes;
}

/// Takes values from the front of results.
class Results {
 public:
  explicit Results(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  std::uint8_t takeByte() {
    if (bytes_.empty()) throw damage();
    const std::uint8_t byte = bytes_.front();
    bytes_ = bytes_.subspan(1);
    return byte;
  }
  bool takeTruth() { return takeByte() != 0; }
  /// An array that begins with its length and ends the results.
  std::span<const std::uint8_t> takeLastArray() {
    if (takeByte() != bytes_.size()) throw damage();
    return bytes_;
  }
  [[nodiscard]] bool isEmpty() const { return bytes_.empty(); }

 private:
  std::span<const std::uint8_t> bytes_;
};

}  // namespace

std::string lineOf(std::span<const std::uint8_t> bytes) {
  return hexText(bytes) + lineEnd;
}

Bytes versionRequest() {
  return requestOf(getVersion, {maxBytes});
}

Bytes tagTypesRequest() {
  constexpr std::uint8_t highFrequencyMask = 1U << (iso15693Tag & 0x1FU);
  return requestOf(setTagTypes, {0, 0, 0, 0, highFrequencyMask, 0, 0, 0});
}

Bytes searchRequest() {
  return requestOf(searchTag, {maxUidLength});
}

Bytes fieldOffRequest() {
  return requestOf(fieldOff);
}

Bytes airRequest(std::span<const std::uint8_t> request) {
  constexpr std::size_t flagsAndCommand = 2;
  const auto data = request.subspan(flagsAndCommand);
  Bytes bytes =
      requestOf(iso15693Command, {request[0], request[1], static_cast<std::uint8_t>(data.size())});
  bytes.insert(bytes.end(), data.begin(), data.end());
  bytes.push_back(maxBytes);
  return bytes;
}

std::span<const std::uint8_t> resultsOf(std::span<const std::uint8_t> answer) {
  if (answer.empty()) throw damage();
  const std::uint8_t status = answer.front();
  if (status != 0) {
    throw NfcFault(NfcFaultKind::ReaderRefusal,
                   "the reader reports error " + std::to_string(status) + ": " +
                       (status < statusNames.size() ? statusNames[status] : "unknown code"));
  }
  return answer.subspan(1);
}

std::string versionOf(std::span<const std::uint8_t> results) {
  const auto text = Results(results).takeLastArray();
  return {text.begin(), text.end()};
}

bool isSimpleProtocol(std::string_view version) {
  return version.substr(0, 4) == "TWN4" && version.find("PRS") != std::string_view::npos;
}

std::optional<TagUid> tagOf(std::span<const std::uint8_t> results) {
  Results reader(results);
  if (!reader.takeTruth()) return std::nullopt;
  const std::uint8_t kind = reader.takeByte();
  const std::size_t bits = reader.takeByte();
  const auto number = reader.takeLastArray();
  if (kind != iso15693Tag) {
    throw NfcFault(NfcFaultKind::TagRefusal,
                   "the tag in the reader's field is not a module's, but of kind " + hexText(kind));
  }
  TagUid uid{};
  if (bits != uidBits || number.size() != uid.size()) throw damage();
  std::copy(number.begin(), number.end(), uid.begin());
  return uid;
}

std::optional<Bytes> tagDataOf(std::span<const std::uint8_t> results) {
  Results reader(results);
  const bool isDone = reader.takeTruth();
  if (!isDone && reader.isEmpty()) return std::nullopt;
  const auto data = reader.takeLastArray();
  if (!isDone) return dataOf(AirAnswer{0x01, Bytes(data.begin(), data.end())});
  return Bytes(data.begin(), data.end());
}

}  // namespace tessara::twn4
