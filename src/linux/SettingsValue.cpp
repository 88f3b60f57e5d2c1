#include "linux/SettingsValue.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>

#include <glib.h>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace tessara {

namespace {

/// What programs write behind a backslash.
constexpr std::string_view writtenEscapes = "abfnrtv0x\"\\";
constexpr std::string_view blanks = " \t";
constexpr std::string_view listOfNumbers = "0123456789+-., \t";

constexpr char16_t deleteSign = u'\x7F';
constexpr char16_t lastControl = u'\x9F';

bool isControl(char16_t unit) {
  return unit < u' ' || (unit >= deleteSign && unit <= lastControl);
}

bool isEscape(std::string_view raw, std::size_t i) {
  return raw[i] == '\\' && i + 1 < raw.size() && (raw[i + 1] == '\\' || raw[i + 1] == '"');
}

/// True if some backslash is one that only a person writes.
bool isEnteredByHand(std::string_view raw) {
  for (std::size_t i = 0; i < raw.size(); ++i) {
    if (raw[i] != '\\') continue;
    if (++i == raw.size() || writtenEscapes.find(raw[i]) == std::string_view::npos) return true;
  }
  return false;
}

/// Takes one raw value apart.
class ValueReader {
 public:
  explicit ValueReader(std::string_view raw) : raw_(raw), hasHexEscapes_(!isEnteredByHand(raw)) {
    while (position_ < raw_.size() && (quoted_ || raw_[position_] != ';')) step();
    const auto end = text_.find_last_not_of(u" \t");
    text_.resize(std::max(settled_, end == std::u16string::npos ? 0 : end + 1));
  }

  [[nodiscard]] std::string text() const { return toUtf8(text_); }
  [[nodiscard]] bool isOpen() const { return quoted_; }
  /// True if the value has a comma outside quotation marks, as lists do.
  [[nodiscard]] bool isList() const { return isList_; }
  /// Where the comment begins, or the end of the value.
  [[nodiscard]] std::size_t end() const { return position_; }

 private:
  void step() {
    if (isEscape(raw_, position_)) {
      text_ += static_cast<char16_t>(raw_[position_ + 1]);
      position_ += 2;
    } else if (raw_[position_] == '"') {
      quoted_ = !quoted_;
      settled_ = text_.size();
      ++position_;
    } else if (!takeHexEscape()) {
      takeCharacter();
    }
  }

  bool takeHexEscape() {
    if (!hasHexEscapes_ || !raw_.substr(position_).starts_with("\\x")) return false;
    std::uint16_t unit = 0;
    const char* digits = raw_.data() + position_ + 2;
    const auto [stop, error] = std::from_chars(digits, raw_.data() + raw_.size(), unit, 16);
    if (error != std::errc() || isControl(unit)) return false;
    text_ += static_cast<char16_t>(unit);
    position_ = static_cast<std::size_t>(stop - raw_.data());
    return true;
  }

  void takeCharacter() {
    const auto length = static_cast<std::size_t>(g_utf8_skip[static_cast<guchar>(raw_[position_])]);
    isList_ = isList_ || (raw_[position_] == ',' && !quoted_);
    text_ += fromUtf8(raw_.substr(position_, length));
    position_ += length;
  }

  std::string_view raw_;
  bool hasHexEscapes_;
  std::size_t position_ = 0;
  std::u16string text_;
  bool quoted_ = false;
  bool isList_ = false;
  /// Up to here blanks at the end belong to the text.
  std::size_t settled_ = 0;
};

[[noreturn]] void raiseMismatch(std::string_view raw, const char* what) {
  throw RunTimeError(ErrorNumber::TypeMismatch, std::string(raw) + ' ' + what);
}

}  // namespace

std::string decodedValue(std::string_view raw) {
  const ValueReader reader(raw);
  const std::string text = reader.text();
  if (reader.isOpen()) raiseMismatch(raw, "opens a quotation mark and does not close it");
  if (text.starts_with('@') && !text.starts_with("@@")) {
    raiseMismatch(raw, "is neither text nor a number");
  }
  if (reader.isList() && text.find_first_not_of(listOfNumbers) == std::string::npos) {
    raiseMismatch(raw, "is a list, not one value");
  }
  return text.starts_with('@') ? text.substr(1) : text;
}

std::string encodedValue(const std::string& text, std::string_view replaced) {
  if (g_utf8_validate_len(text.data(), text.size(), nullptr) == FALSE) {
    throw RunTimeError(ErrorNumber::InvalidCall, "a setting must be text in UTF-8");
  }
  const std::u16string units = fromUtf8(text);
  if (std::any_of(units.begin(), units.end(), isControl)) {
    throw RunTimeError(ErrorNumber::InvalidCall,
                       "a setting is one line of text without control characters");
  }
  std::string raw = text.starts_with('@') ? "@" : "";
  for (const char sign : text) {
    if (sign == '\\' || sign == '"') raw += '\\';
    raw += sign;
  }
  const bool isPlain = raw.empty() || (raw.find_first_of(";,=\"") == std::string::npos &&
                                       blanks.find(raw.front()) == std::string_view::npos &&
                                       blanks.find(raw.back()) == std::string_view::npos);
  if (!isPlain) raw = '"' + raw + '"';
  const std::string_view comment = replaced.substr(ValueReader(replaced).end());
  return comment.empty() ? raw : raw.append(" ").append(comment);
}

}  // namespace tessara
