#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tessara {

/// The text of an XML file in UTF-8, with the lines in which an editor shows it.
class XmlSource {
 public:
  /// Takes a file's bytes. UTF-8, UTF-16 and UTF-32 are told apart by their first bytes, ISO 8859-1
  /// by the file's own declaration; the byte order mark is left out.
  explicit XmlSource(std::string_view bytes);

  [[nodiscard]] const std::string& text() const { return text_; }

  /// The line, from 1, of the byte at `offset` in the text. One past the end lies in the last line.
  [[nodiscard]] std::size_t lineAt(std::size_t offset) const;

 private:
  std::string text_;
  /// Where the lines end.
  std::vector<std::size_t> lineEnds_;
};

}  // namespace tessara
