#include "pictures/RasterOutline.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace tessara {
namespace {

using namespace std::string_literals;

const std::string incomplete = "it is incomplete";

/// Little-endian numbers in the bytes of a file; 0 behind its end.
class Fields {
 public:
  explicit Fields(std::string_view bytes) : bytes_(bytes) {}

  [[nodiscard]] std::size_t size() const { return bytes_.size(); }
  [[nodiscard]] std::uint32_t number(std::size_t at, std::size_t width) const {
    std::uint32_t value = 0;
    for (std::size_t index = width; index-- > 0;) value = value << 8U | byte(at + index);
    return value;
  }
  [[nodiscard]] std::uint8_t byte(std::size_t at) const {
    return at < bytes_.size() ? static_cast<std::uint8_t>(bytes_[at]) : std::uint8_t{0};
  }

 private:
  std::string_view bytes_;
};

constexpr std::size_t iconHeader = 6;
constexpr std::size_t iconEntry = 16;

/// What the header of a BMP says about its pixels.
struct BmpHeader {
  std::int64_t width;
  std::int64_t height;
  std::int64_t bits;
  bool isCompressed;

  /// `at` is where the header begins: behind that of the file, or at the front of an icon's
  /// picture.
  BmpHeader(const Fields& file, std::size_t at) {
    constexpr std::uint32_t oldHeader = 12;
    const bool isOld = file.number(at, 4) == oldHeader;
    width = isOld ? file.number(at + 4, 2) : static_cast<std::int32_t>(file.number(at + 4, 4));
    // A negative height stands for rows from top to bottom.
    height = isOld ? file.number(at + 6, 2)
                   : std::abs(std::int64_t{static_cast<std::int32_t>(file.number(at + 8, 4))});
    bits = file.number(at + (isOld ? 10 : 14), 2);
    // 3 and 6 only say where the colours lie in a pixel.
    const std::uint32_t compression = isOld ? 0 : file.number(at + 16, 4);
    isCompressed = compression != 0 && compression != 3 && compression != 6;
  }
  /// The size of that many rows.
  [[nodiscard]] std::int64_t bytesOf(std::int64_t rows) const {
    return (width * bits + 31) / 32 * 4 * rows;
  }
};

std::optional<std::string> faultOfSize(std::int64_t width, std::int64_t height) {
  if (isDecodable(width, height)) return std::nullopt;
  return width <= 0 || height <= 0
             ? "it has no pixels"
             : "it has more than " + std::to_string(PictureFile::maxPixels) + " pixels";
}

std::optional<std::string> faultOfBmp(const Fields& file) {
  constexpr std::size_t fileHeader = 14;
  const BmpHeader header(file, fileHeader);
  const auto fault = faultOfSize(header.width, header.height);
  if (fault) return fault;
  const std::int64_t needed = file.number(10, 4) + header.bytesOf(header.height);
  const bool isComplete = header.isCompressed || needed <= std::ssize(file);
  return isComplete ? std::nullopt : std::optional(incomplete);
}

/// Goes over the blocks of a GIF to the end of its first picture.
std::optional<std::string> faultOfGif(const Fields& file) {
  constexpr std::uint8_t extension = 0x21;
  constexpr std::uint8_t picture = 0x2C;
  const auto colours = [&file](std::size_t flags) {
    const std::uint8_t bits = file.byte(flags);
    return (bits & 0x80U) != 0 ? std::size_t{6} << (bits & 7U) : std::size_t{0};
  };
  const auto behindPieces = [&file](std::size_t at) {
    while (file.byte(at) != 0) at += std::size_t{1} + file.byte(at);
    return at + 1;
  };
  std::size_t at = 13 + colours(10);
  while (file.byte(at) == extension) at = behindPieces(at + 2);
  const bool isPicture = file.byte(at) == picture;
  const std::size_t end = isPicture ? behindPieces(at + 11 + colours(at + 9)) : at;
  return isPicture && end <= file.size() ? std::nullopt : std::optional(incomplete);
}

/// Of an icon with one picture that is not a PNG.
std::optional<std::string> faultOfIcon(const Fields& file) {
  constexpr std::size_t headers = iconHeader + iconEntry;
  const BmpHeader header(file, headers);
  // The mask lies below the colours and counts as further rows.
  const std::int64_t height = header.height / 2;
  const auto fault = faultOfSize(header.width, height);
  if (fault) return fault;
  const std::int64_t needed =
      std::int64_t{headers} + file.number(headers, 4) + header.bytesOf(height);
  return needed <= std::ssize(file) ? std::nullopt : std::optional(incomplete);
}

}  // namespace

std::optional<PictureFile> firstOfIcon(const std::string& bytes) {
  const Fields file(bytes);
  const bool isEmpty = file.size() < iconHeader + iconEntry || file.number(4, 2) == 0;
  const std::size_t size = file.number(iconHeader + 8, 4);
  const std::size_t offset = file.number(iconHeader + 12, 4);
  if (isEmpty || offset + size > bytes.size()) return std::nullopt;
  const std::string picture = bytes.substr(offset, size);
  if (picture.starts_with("\x89PNG")) return PictureFile{PictureFormat::Png, picture};
  const std::string header = "\0\0\1\0\1\0"s + bytes.substr(iconHeader, 12);
  const std::string begin{static_cast<char>(iconHeader + iconEntry), '\0', '\0', '\0'};
  return PictureFile{PictureFormat::Ico, header + begin + picture};
}

std::optional<std::string> faultOfRaster(const PictureFile& file) {
  const Fields fields(file.bytes);
  switch (file.format) {
    case PictureFormat::Bmp:
      return faultOfBmp(fields);
    case PictureFormat::Gif:
      return faultOfGif(fields);
    case PictureFormat::Ico:
      return faultOfIcon(fields);
    default:
      return std::nullopt;
  }
}

}  // namespace tessara
