#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>

namespace tessara {

/// The bytes of a language file, read as UTF-16 little-endian code units from front to end.
class LanguageFile {
 public:
  explicit LanguageFile(std::string bytes) : bytes_(std::move(bytes)) {}

  /// Files have a few kilobytes; one beyond this, or without an end, would take the memory of the
  /// machine.
  static constexpr std::size_t mostBytes = std::size_t{64} << 20U;

  /// The file at `path`, whole. One that cannot be read, or is longer than mostBytes, is an access
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

/// Reads one line. The first code unit belongs to it whatever it is, so that a blank line is no
/// line of its own but opens the next one with its CR LF. From the second code unit on, CR ends the
/// line and takes the unit behind it along, unread; an LF alone is text. The end of the file ends
/// the line too, but not before the second code unit: a last line of one character without CR is a
/// read past the end (error 62).
std::u16string ReadLanguageLine(LanguageFile& file);

}  // namespace tessara
