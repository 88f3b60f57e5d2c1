#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessara {

/// Splits bytes that arrive in pieces into lines. A line ends at a line feed; one that grows beyond
/// the limit is dropped, with the rest of it as it arrives.
class LineSplitter {
 public:
  explicit LineSplitter(std::size_t maxLength) : maxLength_(maxLength) {}

  /// The lines that these bytes complete, without their ends; nullopt for a line that was too long.
  std::vector<std::optional<std::string>> add(std::string_view bytes);

  /// The incomplete line at the end of all bytes; empty if there is none.
  std::vector<std::optional<std::string>> finish();

 private:
  void append(std::string_view bytes);
  std::optional<std::string> takeLine();

  std::size_t maxLength_;
  std::string begun_;
  bool isTooLong_ = false;
};

}  // namespace tessara
