#include "json/JsonText.h"

#include <nlohmann/json.hpp>

namespace tessara {

namespace {

using OrderedJson = nlohmann::ordered_json;

std::string written(const OrderedJson& value) {
  return value.dump(-1, ' ', false, OrderedJson::error_handler_t::replace);
}

}  // namespace

JsonText::JsonText(double value) : text_(written(value)) {}

JsonText::JsonText(std::string_view text) : text_(written(text)) {}

JsonText JsonText::object(const std::vector<Member>& members) {
  std::string text = "{";
  for (const auto& [key, value] : members) {
    if (text.size() > 1) text += ',';
    text += written(key) + ':' + value.text_;
  }
  return verbatim(text + '}');
}

JsonText JsonText::list(const std::vector<JsonText>& elements) {
  std::string text = "[";
  for (const JsonText& element : elements) {
    if (text.size() > 1) text += ',';
    text += element.text_;
  }
  return verbatim(text + ']');
}

JsonText JsonText::verbatim(std::string text) {
  JsonText json;
  json.text_ = std::move(text);
  return json;
}

std::string JsonText::indented() const {
  constexpr int indent = 2;
  return OrderedJson::parse(text_).dump(indent);
}

}  // namespace tessara
