#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>

namespace tessara {

/// The bytes of a language file, read from start to end as UTF-16 little-endian code units.
class LanguageFile {
 public:
  explicit LanguageFile(std::string bytes) : bytes_(std::move(bytes)) {}

  /// Language files have a few kilobytes. One above this limit, or without an end, would exhaust
  /// the memory.
  static constexpr std::size_t maxBytes = std::size_t{64} << 20U;

  /// The whole file at `path`. A file that cannot be read, or is longer than maxBytes, is an access
  /// error (75).
  static LanguageFile open(const std::filesystem::path& path);

  /// The next code unit. With fewer than two bytes left it is a read past the end (error 62).
  char16_t readUnit();

  /// True once the read position has reached the length of the file. A single byte left over is
  /// not the end.
  [[nodiscard]] bool atEnd() const { return position_ >= bytes_.size(); }

  [[nodiscard]] const std::string& bytes() const { return bytes_; }

  /// The read position, in bytes.
  [[nodiscard]] std::size_t position() const { return position_; }

 private:
  std::string bytes_;
  std::size_t position_ = 0;
};

/// Reads one line. The first code unit always belongs to it, so the CR LF of a blank line becomes
/// the start of the next line. From the second code unit on, CR ends the line and the unit after it
/// is skipped; an LF alone is text. The end of the file ends the line too, but not before the
/// second code unit: a last line of one character without CR is a read past the end (error 62).
std::u16string ReadLanguageLine(LanguageFile& file);

}  // namespace tessara
