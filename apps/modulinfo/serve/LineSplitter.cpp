#include "serve/LineSplitter.h"

#include <utility>

namespace tessara {

std::vector<std::optional<std::string>> LineSplitter::add(std::string_view bytes) {
  std::vector<std::optional<std::string>> lines;
  for (auto end = bytes.find('\n'); end != std::string_view::npos; end = bytes.find('\n')) {
    append(bytes.substr(0, end));
    lines.push_back(takeLine());
    bytes.remove_prefix(end + 1);
  }
  append(bytes);
  return lines;
}

std::vector<std::optional<std::string>> LineSplitter::finish() {
  std::vector<std::optional<std::string>> lines;
  if (isTooLong_ || !begun_.empty()) lines.push_back(takeLine());
  return lines;
}

void LineSplitter::append(std::string_view bytes) {
  isTooLong_ = isTooLong_ || bytes.size() > maxLength_ - begun_.size();
  if (isTooLong_) {
    begun_ = {};
  } else {
    begun_ += bytes;
  }
}

std::optional<std::string> LineSplitter::takeLine() {
  std::string line = std::exchange(begun_, {});
  if (std::exchange(isTooLong_, false)) return std::nullopt;
  return line;
}

}  // namespace tessara
