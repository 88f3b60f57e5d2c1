#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace tessara {

/// The formats in which pictures are shown.
enum class PictureFormat { Png, Jpeg, Gif, Bmp, Ico, Svg };

/// A picture file before it is decoded. All that loads pictures begins here, so that every program
/// knows the same formats and keeps the same limits.
struct PictureFile {
  /// Larger files are not read. In bytes.
  static constexpr std::uintmax_t maxSize = std::uintmax_t{16} << 20U;
  /// A raster picture with more pixels is not decoded: those of a 4K screen, 32 MiB at 4 bytes
  /// each.
  static constexpr std::int64_t maxPixels = std::int64_t{8} << 20U;

  PictureFormat format{};
  std::string bytes;
};

/// Reads the file; of an icon with several pictures it gives the first. A file that cannot be read,
/// is too large or not a file, or has an outline that is not that of a picture (SvgOutline.h,
/// RasterOutline.h) is an invalid picture (error 481) whose message names file and cause. An SVG
/// can then be drawn; whether a raster picture can be decoded is left to the decoder.
PictureFile readPictureFile(const std::filesystem::path& path);

/// False for a raster picture that has no pixels or more than PictureFile::maxPixels.
bool isDecodable(std::int64_t width, std::int64_t height);

/// The name of a format in gdk-pixbuf and in Qt, such as "png".
const char* nameOf(PictureFormat format);

/// Throws the error 481 for this file.
[[noreturn]] void failPicture(const std::filesystem::path& path, const std::string& cause);

}  // namespace tessara
