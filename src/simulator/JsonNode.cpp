#include "simulator/JsonNode.h"

#include <algorithm>
#include <charconv>
#include <set>

namespace tessara {

namespace {

using nlohmann::json;

/// The parser's own message without its prefix in brackets.
std::string withoutPrefix(const std::string& message) {
  const auto end = message.find("] ");
  return end == std::string::npos ? message : message.substr(end + 2);
}

/// Far deeper than any module file goes, and far from where copying a value exhausts the stack.
constexpr int kDeepest = 32;

/// Sees each key as it is parsed, and throws on one that stands twice in its object; and on values
/// that lie too deep in one another.
class StructureCheck {
 public:
  explicit StructureCheck(std::string source) : source_(std::move(source)) {}

  bool operator()(int depth, json::parse_event_t event, const json& parsed) {
    if (depth > kDeepest) {
      throw ModuleFileError(source_ + ": lists and objects lie more than " +
                            std::to_string(kDeepest) + " deep in one another");
    }
    if (event == json::parse_event_t::object_start) open_.emplace_back();
    if (event == json::parse_event_t::object_end) open_.pop_back();
    if (event == json::parse_event_t::key && !open_.back().insert(parsed).second) {
      throw ModuleFileError(source_ + ": the key " + parsed.dump() + " stands twice in one object");
    }
    return true;
  }

 private:
  std::string source_;
  std::vector<std::set<std::string>> open_;
};

}  // namespace

std::optional<std::uint64_t> unsignedFromText(std::string_view text, std::uint64_t highest) {
  const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (hexadecimal) text.remove_prefix(2);
  std::uint64_t number = 0;
  const auto* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number, hexadecimal ? 16 : 10);
  if (result.ec != std::errc() || result.ptr != end || number > highest) return std::nullopt;
  return number;
}

JsonNode::JsonNode(std::string source, std::string place, json value)
    : source_(std::move(source)), place_(std::move(place)), value_(std::move(value)) {}

JsonNode JsonNode::parse(std::string_view text, const std::string& source) {
  try {
    return {source, "", json::parse(text, StructureCheck(source))};
  } catch (const json::exception& error) {
    throw ModuleFileError(source + ": " + withoutPrefix(error.what()));
  }
}

void JsonNode::fail(const std::string& what) const {
  throw ModuleFileError(source_ + ": " + (place_.empty() ? "" : place_ + ": ") + what);
}

JsonNode JsonNode::child(const std::string& key, const json& value) const {
  return {source_, place_ + "/" + key, value};
}

void JsonNode::requireObject() const {
  if (!value_.is_object()) fail("must be an object, not " + value_.dump());
}

JsonNode JsonNode::operator[](const std::string& key) const {
  requireObject();
  if (!value_.contains(key)) fail("the key \"" + key + "\" is missing");
  return child(key, value_.at(key));
}

std::vector<std::pair<std::string, JsonNode>> JsonNode::members() const {
  requireObject();
  std::vector<std::pair<std::string, JsonNode>> members;
  for (const auto& [key, value] : value_.items()) members.emplace_back(key, child(key, value));
  return members;
}

std::vector<JsonNode> JsonNode::elements() const {
  if (!value_.is_array()) fail("must be a list, not " + value_.dump());
  std::vector<JsonNode> elements;
  for (std::size_t index = 0; index < value_.size(); ++index) {
    elements.push_back(child(std::to_string(index), value_[index]));
  }
  return elements;
}

void JsonNode::allowOnly(const std::vector<std::string_view>& keys) const {
  for (const auto& [key, value] : members()) {
    if (std::ranges::find(keys, key) == keys.end()) value.fail("this key is not known here");
  }
}

std::string JsonNode::text() const {
  if (!value_.is_string()) fail("must be text, not " + value_.dump());
  return value_;
}

std::uint64_t JsonNode::number(std::uint64_t lowest, std::uint64_t highest) const {
  const bool fits = value_.is_number_unsigned() && value_.get<std::uint64_t>() >= lowest &&
                    value_.get<std::uint64_t>() <= highest;
  if (!fits) {
    fail("must be a whole number from " + std::to_string(lowest) + " to " +
         std::to_string(highest) + ", not " + value_.dump());
  }
  return value_;
}

double JsonNode::real() const {
  if (!value_.is_number()) fail("must be a number, not " + value_.dump());
  return value_;
}

std::uint16_t JsonNode::word() const {
  constexpr std::uint64_t kHighest = 0xFFFF;
  constexpr std::int64_t kLowest = -0x8000;
  if (value_.is_string() && value_.get<std::string>().starts_with("0x")) {
    if (const auto number = unsignedFromText(value_.get<std::string>(), kHighest)) {
      return static_cast<std::uint16_t>(*number);
    }
  } else if (value_.is_number_unsigned()) {
    const auto number = value_.get<std::uint64_t>();
    if (number <= kHighest) return static_cast<std::uint16_t>(number);
  } else if (value_.is_number_integer()) {
    const auto number = value_.get<std::int64_t>();
    if (number >= kLowest) return static_cast<std::uint16_t>(number);
  }
  fail("must be a 16-bit word, a number from -32768 to 65535 or text like \"0x1234\", not " +
       value_.dump());
}

}  // namespace tessara
