#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <nlohmann/json.hpp>

#include "simulator/ModuleFileError.h"

namespace tessara {

/// The number that the text gives in decimal, or in hexadecimal behind 0x; nothing if it is none or
/// lies above `highest`.
std::optional<std::uint64_t> unsignedFromText(std::string_view text, std::uint64_t highest);

/// A value in a module file that knows its place. Every reader throws ModuleFileError if the value
/// is not what is asked for.
class JsonNode {
 public:
  /// The root of a file called `source` in messages. A key that stands twice in one object is an
  /// error like any other.
  static JsonNode parse(std::string_view text, const std::string& source);

  [[noreturn]] void fail(const std::string& what) const;

  [[nodiscard]] bool has(const std::string& key) const { return value_.contains(key); }

  /// The member of an object; fails if there is none.
  [[nodiscard]] JsonNode operator[](const std::string& key) const;

  /// Key and value of each member of an object, by key.
  [[nodiscard]] std::vector<std::pair<std::string, JsonNode>> members() const;

  /// The elements of an array.
  [[nodiscard]] std::vector<JsonNode> elements() const;

  /// Fails unless this is an object with no other keys than these.
  void allowOnly(const std::vector<std::string_view>& keys) const;

  [[nodiscard]] bool isText() const { return value_.is_string(); }
  [[nodiscard]] std::string text() const;

  /// A whole number from `lowest` to `highest`.
  [[nodiscard]] std::uint64_t number(std::uint64_t lowest, std::uint64_t highest) const;

  /// Any number.
  [[nodiscard]] double real() const;

  /// A 16-bit word: a number from -32768 to 65535, or text in hexadecimal, "0x1234".
  [[nodiscard]] std::uint16_t word() const;

 private:
  void requireObject() const;
  JsonNode(std::string source, std::string place, nlohmann::json value);
  [[nodiscard]] JsonNode child(const std::string& key, const nlohmann::json& value) const;

  std::string source_;
  std::string place_;
  nlohmann::json value_;
};

}  // namespace tessara
