#include "pictures/PictureFile.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/RunTimeError.h"
#include "pictures/RasterOutline.h"
#include "pictures/SvgOutline.h"

namespace tessara {
namespace {

using namespace std::string_view_literals;

/// The bytes with which the files of a format begin.
struct Signature {
  std::string_view bytes;
  PictureFormat format;
};
constexpr std::array signatures{
    Signature{"\x89PNG\r\n\x1A\n"sv, PictureFormat::Png},
    Signature{"\xFF\xD8\xFF"sv, PictureFormat::Jpeg},
    Signature{"GIF87a"sv, PictureFormat::Gif},
    Signature{"GIF89a"sv, PictureFormat::Gif},
    Signature{"BM"sv, PictureFormat::Bmp},
    Signature{"\0\0\1\0"sv, PictureFormat::Ico},
    // XML begins with the byte order mark of its encoding or, behind any blanks, with a tag.
    Signature{"\xEF\xBB\xBF"sv, PictureFormat::Svg},
    Signature{"\xFE\xFF"sv, PictureFormat::Svg},
    Signature{"\xFF\xFE"sv, PictureFormat::Svg},
};

std::optional<PictureFormat> formatOf(std::string_view bytes) {
  const auto found = std::find_if(signatures.begin(), signatures.end(), [&](const Signature& row) {
    return bytes.starts_with(row.bytes);
  });
  if (found != signatures.end()) return found->format;
  const auto first = bytes.find_first_not_of(" \t\r\n");
  const bool isTag = first != std::string_view::npos && bytes[first] == '<';
  return isTag ? std::optional(PictureFormat::Svg) : std::nullopt;
}

std::string bytesOf(const std::filesystem::path& path) {
  std::error_code error;
  const auto status = std::filesystem::status(path, error);
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    failPicture(path, "it is not a file");
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) failPicture(path, "it cannot be read");
  // What is read counts, not the size that the file had a moment ago.
  std::string bytes;
  std::array<char, 65536> piece{};
  while (file.read(piece.data(), piece.size()) || file.gcount() > 0) {
    bytes.append(piece.data(), static_cast<std::size_t>(file.gcount()));
    if (bytes.size() > PictureFile::maxSize) {
      failPicture(path, "it is larger than " + std::to_string(PictureFile::maxSize) + " bytes");
    }
  }
  if (file.bad()) failPicture(path, "it cannot be read");
  return bytes;
}

}  // namespace

PictureFile readPictureFile(const std::filesystem::path& path) {
  PictureFile file;
  file.bytes = bytesOf(path);
  const auto format = formatOf(file.bytes);
  if (!format) failPicture(path, "it is not a picture");
  file.format = *format;
  if (file.format == PictureFormat::Ico) {
    auto first = firstOfIcon(file.bytes);
    if (!first) failPicture(path, "it is incomplete");
    file = *std::move(first);
  }
  const auto fault =
      file.format == PictureFormat::Svg ? faultOfSvg(file.bytes) : faultOfRaster(file);
  if (fault) failPicture(path, *fault);
  return file;
}

const char* nameOf(PictureFormat format) {
  constexpr std::array names{"png", "jpeg", "gif", "bmp", "ico", "svg"};
  return names.at(static_cast<std::size_t>(format));
}

bool isDecodable(std::int64_t width, std::int64_t height) {
  return width > 0 && height > 0 && width <= PictureFile::maxPixels / height;
}

void failPicture(const std::filesystem::path& path, const std::string& cause) {
  throw RunTimeError(ErrorNumber::InvalidPicture,
                     "The picture " + path.string() + " cannot be shown: " + cause);
}

}  // namespace tessara
