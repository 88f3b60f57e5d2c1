#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <nlohmann/json_fwd.hpp>

#include "json/JsonError.h"
#include "json/JsonText.h"

namespace tessara {

/// How deep lists and objects may be nested: far deeper than any text of this product goes, and far
/// from where handling a value exhausts the stack.
inline constexpr int maxJsonDepth = 64;

/// What a key that occurs twice in one object does: the last one counts, or the text is refused.
enum class RepeatedKeys : std::uint8_t { LastCounts, Refused };

/// A value in a JSON text, with its path: "faults[0].kind". Whatever reads it throws a JsonError if
/// the value is not what it should be. Copies are cheap and share the text.
class JsonReader {
 public:
  /// The outermost value of the text (UTF-8), which messages call `name`. Throws a JsonSyntaxError
  /// for what is not JSON or is nested deeper than maxJsonDepth, which is seen before it is parsed.
  static JsonReader parse(std::string_view text, std::string name = "",
                          RepeatedKeys repeatedKeys = RepeatedKeys::LastCounts);
  /// An empty object of that name.
  static JsonReader emptyObject(std::string name = "");

  /// The same value with another path.
  [[nodiscard]] JsonReader named(std::string name) const;

  [[nodiscard]] const std::string& path() const { return path_; }
  [[nodiscard]] JsonText json() const;
  /// The value in JSON on one line, its end cut off where it is long.
  [[nodiscard]] std::string shown() const;

  [[noreturn]] void fail(const std::string& problem) const;

  [[nodiscard]] bool isNull() const;
  [[nodiscard]] bool isText() const;
  [[nodiscard]] bool isTruth() const;
  [[nodiscard]] bool isNumber() const;
  [[nodiscard]] bool isWholeNumber() const;
  [[nodiscard]] bool isList() const;
  [[nodiscard]] bool isObject() const;

  /// True for an object with that key.
  [[nodiscard]] bool has(std::string_view key) const { return find(key).has_value(); }
  /// The member of an object; nothing if there is none, or if this is not an object.
  [[nodiscard]] std::optional<JsonReader> find(std::string_view key) const;
  /// The member of an object, which must be there.
  [[nodiscard]] JsonReader operator[](std::string_view key) const;
  /// Key and value of each member of an object, by key.
  [[nodiscard]] std::vector<std::pair<std::string, JsonReader>> members() const;
  /// Fails unless this is an object with no other keys than these.
  void allowOnly(std::span<const std::string_view> keys) const;
  void allowOnly(std::initializer_list<std::string_view> keys) const {
    allowOnly(std::span(keys.begin(), keys.size()));
  }

  /// The elements of a list.
  [[nodiscard]] std::vector<JsonReader> elements() const;

  [[nodiscard]] std::string text() const;
  [[nodiscard]] bool truth() const;
  /// Any number.
  [[nodiscard]] double real() const;
  /// The place of the text among the choices.
  [[nodiscard]] std::size_t choice(std::span<const std::string_view> choices) const;

  /// A whole number within that range.
  [[nodiscard]] std::uint64_t number(std::uint64_t min, std::uint64_t max) const;
  [[nodiscard]] std::int64_t signedNumber(std::int64_t min, std::int64_t max) const;
  /// The whole number that this is; nothing if it is anything else, or too large.
  [[nodiscard]] std::optional<std::int64_t> wholeNumber() const;

 private:
  JsonReader(std::shared_ptr<const nlohmann::json> value, std::string path);

  [[nodiscard]] JsonReader child(const nlohmann::json& value, std::string path) const;
  [[nodiscard]] std::string pathOf(std::string_view key) const;
  void require(bool isOfKind, jsonProblem::Kind kind) const;
  template <class Number>
  [[noreturn]] void failNumber(Number min, Number max) const;

  /// Keeps the whole text's value alive.
  std::shared_ptr<const nlohmann::json> value_;
  std::string path_;
};

}  // namespace tessara
