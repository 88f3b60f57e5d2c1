#include "serve/VariantJson.h"

#include <limits>

#include "base/Text.h"

namespace tessara {

namespace {

struct JsonOf {
  JsonText operator()(std::monostate /*nothing*/) const { return nullptr; }
  JsonText operator()(const std::u16string& text) const { return toUtf8(text); }
  template <typename Number>
  JsonText operator()(Number number) const {
    return number;
  }
};

}  // namespace

JsonText toJson(const Variant& value) {
  return std::visit(JsonOf{}, value);
}

Variant toVariant(const JsonReader& json) {
  if (json.isNull()) return {};
  if (json.isText()) return fromUtf8(json.text());
  if (json.isTruth()) return json.truth();
  if (const auto number = json.wholeNumber()) return *number;
  if (json.isWholeNumber()) return json.number(0, std::numeric_limits<std::uint64_t>::max());
  if (json.isNumber()) return json.real();
  json.fail(json.shown() + " is not text, a number, true, false or null");
}

}  // namespace tessara
