#include "serve/VariantJson.h"

#include <limits>

#include "base/Text.h"

namespace tessara {

namespace {

struct JsonOf {
  OrderedJson operator()(std::monostate /*nothing*/) const { return nullptr; }
  OrderedJson operator()(const std::u16string& text) const { return toUtf8(text); }
  template <typename Number>
  OrderedJson operator()(Number number) const {
    return number;
  }
};

Variant wholeNumber(std::uint64_t number) {
  constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  return number <= largest ? Variant(static_cast<std::int64_t>(number)) : Variant(number);
}

}  // namespace

OrderedJson toJson(const Variant& value) {
  return std::visit(JsonOf{}, value);
}

Variant toVariant(const Json& json, std::string_view what) {
  switch (json.type()) {
    case Json::value_t::null:
      return {};
    case Json::value_t::string:
      return fromUtf8(json.get_ref<const std::string&>());
    case Json::value_t::boolean:
      return json.get<bool>();
    case Json::value_t::number_integer:
      return json.get<std::int64_t>();
    case Json::value_t::number_unsigned:
      return wholeNumber(json.get<std::uint64_t>());
    case Json::value_t::number_float:
      return json.get<double>();
    default:
      throw wrongParameters(std::string(what) +
                            " is neither text nor a number, true, false or null");
  }
}

}  // namespace tessara
