#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessara {

/// Makes lines of bytes that arrive in pieces. A line ends at a line feed; one that grows beyond
/// the limit is given up, and the rest of it is dropped as it arrives.
class LineSplitter {
 public:
  explicit LineSplitter(std::size_t longest) : longest_(longest) {}

  /// The lines that these bytes have completed, without their ends. Nothing stands for a line that
  /// was too long.
  std::vector<std::optional<std::string>> add(std::string_view bytes);

  /// The begun line at the end of all bytes; empty if there is none.
  std::vector<std::optional<std::string>> finish();

 private:
  void append(std::string_view bytes);
  std::optional<std::string> takeLine();

  std::size_t longest_;
  std::string begun_;
  bool isTooLong_ = false;
};

}  // namespace tessara
