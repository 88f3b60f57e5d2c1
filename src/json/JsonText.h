#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tessara {

/// A JSON value in writing: UTF-8 on one line. Bytes in texts that are not UTF-8 become U+FFFD, and
/// so does nothing else: numbers keep all their digits, and members stay in their order.
class JsonText {
 public:
  using Member = std::pair<std::string_view, JsonText>;

  /// null
  JsonText(std::nullptr_t = nullptr) : text_("null") {}
  JsonText(std::same_as<bool> auto value) : text_(value ? "true" : "false") {}
  JsonText(std::integral auto value) requires(!std::same_as<decltype(value), bool>)
      : text_(std::to_string(value)) {}
  JsonText(double value);
  JsonText(std::string_view text);
  JsonText(const std::string& text) : JsonText(std::string_view(text)) {}
  JsonText(const char* text) : JsonText(std::string_view(text)) {}

  /// Keys must not occur twice.
  static JsonText object(const std::vector<Member>& members);
  static JsonText list(const std::vector<JsonText>& elements);
  /// `text` is JSON on one line already.
  static JsonText verbatim(std::string text);

  [[nodiscard]] const std::string& text() const { return text_; }
  /// The same over several lines, each level two blanks further in.
  [[nodiscard]] std::string indented() const;

  bool operator==(const JsonText&) const = default;

 private:
  std::string text_;
};

}  // namespace tessara
