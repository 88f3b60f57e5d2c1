#include "linux/SignaturePictureLoader.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string>
#include <string_view>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "linux/LinuxFileSystem.h"

namespace tessara {
namespace {

using namespace std::string_view_literals;

/// What the files of each format begin with.
constexpr std::array signatures{
    "\x89PNG\r\n\x1A\n"sv, "\xFF\xD8\xFF"sv, "GIF87a"sv, "GIF89a"sv, "BM"sv, "\0\0\1\0"sv};
/// An SVG file may begin with a declaration and comments; its element stands near the front.
constexpr std::size_t front = 1024;

bool isPicture(std::string_view bytes) {
  return std::any_of(signatures.begin(), signatures.end(),
                     [&](std::string_view signature) { return bytes.starts_with(signature); }) ||
         bytes.find("<svg") != std::string_view::npos;
}

[[noreturn]] void raise(const std::u16string& path, const std::string& cause) {
  throw RunTimeError(ErrorNumber::InvalidPicture, toUtf8(path) + " " + cause);
}

}  // namespace

void SignaturePictureLoader::load(const std::u16string& path) {
  std::ifstream file(pathOfHost(path), std::ios::binary);
  std::string bytes(front, '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (file.bad() || !file.is_open()) {
    raise(path, "cannot be read");
  }
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  if (!isPicture(bytes)) {
    raise(path, "holds no picture");
  }
}

}  // namespace tessara
