#include "json/JsonReader.h"

#include <algorithm>
#include <limits>
#include <set>

#include <nlohmann/json.hpp>

namespace tessara {

namespace {

using Json = nlohmann::json;
using jsonProblem::Kind;

/// How much of a value and of a key a message shows, in characters.
constexpr std::size_t maxShownValue = 40;
constexpr std::size_t maxShownKey = 80;

/// The text, cut off behind so many characters of UTF-8.
std::string cutOff(std::string text, std::size_t maxCharacters) {
  constexpr unsigned char continuationMask = 0xC0;
  constexpr unsigned char continuationByte = 0x80;
  std::size_t characters = 0;
  for (std::size_t place = 0; place < text.size(); ++place) {
    if ((static_cast<unsigned char>(text[place]) & continuationMask) == continuationByte) continue;
    if (++characters > maxCharacters) return text.substr(0, place) + "…";
  }
  return text;
}

std::string dumped(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// Where a byte, counted from 1, stands in the text.
JsonSyntaxError::Place placeOf(std::string_view text, std::size_t byte) {
  const auto before = text.substr(0, std::max<std::size_t>(byte, 1) - 1);
  const auto lineStart = before.rfind('\n') + 1;  // 0 in the first line
  return {.byte = byte,
          .line = static_cast<std::size_t>(std::ranges::count(before, '\n')) + 1,
          .column = before.size() - lineStart + 1};
}

/// What the parser found, without its own names and places in front.
std::string causeIn(const std::string& message) {
  const auto end = std::min(message.find("; last read"), message.size());
  const auto dash = message.find(" - ");
  if (dash < end) return message.substr(dash + 3, end - dash - 3);
  const auto colon = message.rfind(": ", end);
  return colon == std::string::npos ? message : message.substr(colon + 2, end - colon - 2);
}

/// A number that no type holds. The parser names it, but not its place.
JsonSyntaxError numberOverflow(std::string_view text, const std::string& message) {
  const auto begin = std::min(message.find('\''), message.size() - 1) + 1;
  const std::string number = message.substr(begin, message.find('\'', begin) - begin);
  const auto place = text.find(number);
  return {placeOf(text, place == std::string_view::npos ? 1 : place + 1),
          "number overflow: " + cutOff(number, maxShownValue)};
}

/// Looks at brackets alone, so that text which is nested without end costs no memory and no time.
void refuseDeepNesting(std::string_view text) {
  int depth = 0;
  bool isInString = false;
  for (std::size_t place = 0; place < text.size(); ++place) {
    const char sign = text[place];
    if (sign == '"') {
      isInString = !isInString;
    } else if (isInString) {
      if (sign == '\\') ++place;
    } else if (sign == '[' || sign == '{') {
      if (++depth > maxJsonDepth) {
        throw JsonSyntaxError(
            placeOf(text, place + 1),
            "lists and objects are nested deeper than " + std::to_string(maxJsonDepth));
      }
    } else if (sign == ']' || sign == '}') {
      --depth;
    }
  }
}

/// Sees each key as it is parsed, and throws on one that occurs twice in its object.
class RepeatedKeyCheck {
 public:
  bool operator()(int /*depth*/, Json::parse_event_t event, const Json& parsed) {
    if (event == Json::parse_event_t::object_start) open_.emplace_back();
    if (event == Json::parse_event_t::object_end) open_.pop_back();
    if (event == Json::parse_event_t::key && !open_.back().insert(parsed).second) {
      throw JsonError("", jsonProblem::Other{"the key " + cutOff(dumped(parsed), maxShownKey) +
                                             " occurs twice in one object"});
    }
    return true;
  }

 private:
  std::vector<std::set<std::string>> open_;
};

Json parsed(std::string_view text, RepeatedKeys repeatedKeys) {
  if (repeatedKeys == RepeatedKeys::Refused) return Json::parse(text, RepeatedKeyCheck());
  return Json::parse(text);
}

bool isPlainKey(std::string_view key) {
  return !key.empty() && std::ranges::all_of(key, [](char sign) {
    return (sign >= 'a' && sign <= 'z') || (sign >= 'A' && sign <= 'Z') ||
           (sign >= '0' && sign <= '9') || sign == '_' || sign == '-';
  });
}

}  // namespace

JsonReader::JsonReader(std::shared_ptr<const Json> value, std::string path)
    : value_(std::move(value)), path_(std::move(path)) {}

JsonReader JsonReader::parse(std::string_view text, std::string name, RepeatedKeys repeatedKeys) {
  refuseDeepNesting(text);
  try {
    return {std::make_shared<const Json>(parsed(text, repeatedKeys)), std::move(name)};
  } catch (const Json::parse_error& error) {
    throw JsonSyntaxError(placeOf(text, error.byte), causeIn(error.what()));
  } catch (const Json::out_of_range& error) {
    throw numberOverflow(text, error.what());
  }
}

JsonReader JsonReader::emptyObject(std::string name) {
  return {std::make_shared<const Json>(Json::object()), std::move(name)};
}

JsonReader JsonReader::named(std::string name) const {
  return {value_, std::move(name)};
}

JsonReader JsonReader::child(const Json& value, std::string path) const {
  return {{value_, &value}, std::move(path)};
}

std::string JsonReader::pathOf(std::string_view key) const {
  if (!isPlainKey(key)) return path_ + "[" + cutOff(dumped(Json(key)), maxShownKey) + "]";
  return path_ + (path_.empty() ? "" : ".") + cutOff(std::string(key), maxShownKey);
}

JsonText JsonReader::json() const {
  return JsonText::verbatim(dumped(*value_));
}

std::string JsonReader::shown() const {
  return cutOff(dumped(*value_), maxShownValue);
}

void JsonReader::fail(const std::string& problem) const {
  throw JsonError(path_, jsonProblem::Other{problem});
}

void JsonReader::require(bool isOfKind, Kind kind) const {
  if (!isOfKind) throw JsonError(path_, jsonProblem::WrongKind{shown(), kind});
}

bool JsonReader::isNull() const {
  return value_->is_null();
}

bool JsonReader::isText() const {
  return value_->is_string();
}

bool JsonReader::isTruth() const {
  return value_->is_boolean();
}

bool JsonReader::isNumber() const {
  return value_->is_number();
}

bool JsonReader::isWholeNumber() const {
  return value_->is_number_integer();
}

bool JsonReader::isList() const {
  return value_->is_array();
}

bool JsonReader::isObject() const {
  return value_->is_object();
}

std::optional<JsonReader> JsonReader::find(std::string_view key) const {
  const auto found = value_->find(key);
  if (found == value_->end()) return std::nullopt;
  return child(*found, pathOf(key));
}

JsonReader JsonReader::operator[](std::string_view key) const {
  require(isObject(), Kind::Object);
  auto member = find(key);
  if (!member) throw JsonError(pathOf(key), jsonProblem::Missing{});
  return *std::move(member);
}

std::vector<std::pair<std::string, JsonReader>> JsonReader::members() const {
  require(isObject(), Kind::Object);
  std::vector<std::pair<std::string, JsonReader>> members;
  for (const auto& [key, value] : value_->items()) {
    members.emplace_back(key, child(value, pathOf(key)));
  }
  return members;
}

void JsonReader::allowOnly(std::span<const std::string_view> keys) const {
  require(isObject(), Kind::Object);
  for (const auto& [key, value] : value_->items()) {
    if (std::ranges::find(keys, key) == keys.end()) {
      throw JsonError(pathOf(key), jsonProblem::Other{"unknown key"});
    }
  }
}

std::vector<JsonReader> JsonReader::elements() const {
  require(isList(), Kind::List);
  std::vector<JsonReader> elements;
  for (std::size_t index = 0; index < value_->size(); ++index) {
    elements.push_back(child((*value_)[index], path_ + "[" + std::to_string(index) + "]"));
  }
  return elements;
}

std::string JsonReader::text() const {
  require(isText(), Kind::Text);
  return value_->get<std::string>();
}

bool JsonReader::truth() const {
  require(isTruth(), Kind::Truth);
  return value_->get<bool>();
}

double JsonReader::real() const {
  require(isNumber(), Kind::Number);
  return value_->get<double>();
}

std::size_t JsonReader::choice(std::span<const std::string_view> choices) const {
  const auto found =
      isText() ? std::ranges::find(choices, value_->get_ref<const std::string&>()) : choices.end();
  if (found == choices.end()) {
    throw JsonError(path_, jsonProblem::WrongChoice{shown(), {choices.begin(), choices.end()}});
  }
  return static_cast<std::size_t>(found - choices.begin());
}

template <class Number>
void JsonReader::failNumber(Number min, Number max) const {
  throw JsonError(path_, jsonProblem::WrongNumber{shown(), isWholeNumber(), std::to_string(min),
                                                  std::to_string(max)});
}

std::uint64_t JsonReader::number(std::uint64_t min, std::uint64_t max) const {
  if (!value_->is_number_unsigned()) failNumber(min, max);
  const auto number = value_->get<std::uint64_t>();
  if (number < min || number > max) failNumber(min, max);
  return number;
}

std::int64_t JsonReader::signedNumber(std::int64_t min, std::int64_t max) const {
  const auto number = wholeNumber();
  if (!number || *number < min || *number > max) failNumber(min, max);
  return *number;
}

std::optional<std::int64_t> JsonReader::wholeNumber() const {
  constexpr std::uint64_t maxSigned = std::numeric_limits<std::int64_t>::max();
  const bool isTooLarge = value_->is_number_unsigned() && value_->get<std::uint64_t>() > maxSigned;
  if (!isWholeNumber() || isTooLarge) return std::nullopt;
  return value_->get<std::int64_t>();
}

}  // namespace tessara
