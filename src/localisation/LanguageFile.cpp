#include "localisation/LanguageFile.h"

#include <array>
#include <fstream>

#include "base/RunTimeError.h"

namespace tessara {

LanguageFile LanguageFile::open(const std::filesystem::path& path) {
  std::ifstream stream(path, std::ios::binary);
  std::string bytes;
  std::array<char, 8192> chunk{};
  while (stream.read(chunk.data(), chunk.size()) || stream.gcount() > 0) {
    bytes.append(chunk.data(), static_cast<std::size_t>(stream.gcount()));
    if (bytes.size() > maxBytes) {
      throw RunTimeError(ErrorNumber::FileAccess,
                         "the file is longer than " + std::to_string(maxBytes) + " bytes");
    }
  }
  if (stream.bad() || !stream.eof()) {
    throw RunTimeError(ErrorNumber::FileAccess, "the file cannot be read");
  }
  return LanguageFile(std::move(bytes));
}

char16_t LanguageFile::readUnit() {
  if (bytes_.size() - position_ < 2) {
    throw RunTimeError(ErrorNumber::InputPastEnd, "the file ends after " +
                                                      std::to_string(bytes_.size()) +
                                                      " bytes, inside a line or a section");
  }
  const auto low = static_cast<unsigned char>(bytes_[position_]);
  const auto high = static_cast<unsigned char>(bytes_[position_ + 1]);
  position_ += 2;
  return static_cast<char16_t>(low | (high << 8U));
}

std::u16string ReadLanguageLine(LanguageFile& file) {
  constexpr char16_t carriageReturn = 0x0D;
  std::u16string line(1, file.readUnit());
  do {
    const char16_t unit = file.readUnit();
    if (unit == carriageReturn) {
      (void)file.readUnit();
      break;
    }
    line += unit;
  } while (!file.atEnd());
  return line;
}

}  // namespace tessara
