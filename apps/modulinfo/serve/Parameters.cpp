#include "serve/Parameters.h"

#include <algorithm>
#include <limits>

namespace tessara {

namespace {

[[noreturn]] void fail(std::string_view name, const char* wrong) {
  throw wrongParameters("the parameter " + inQuotes(name) + " " + wrong);
}

bool isInRange(const Json& number) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (number.is_number_unsigned()) {
    return number.get<std::uint64_t>() <= static_cast<std::uint64_t>(Limits::max());
  }
  return number.get<std::int64_t>() >= Limits::min();
}

}  // namespace

Parameters::Parameters(const Json& params, std::span<const std::string_view> known)
    : params_(params) {
  if (!params.is_object() && !(params.is_array() && params.empty())) {
    throw wrongParameters("\"params\" is no object with them by their names");
  }
  for (const auto& [name, value] : params.items()) {
    if (std::find(known.begin(), known.end(), name) == known.end()) fail(name, "is not known here");
  }
}

const Json& Parameters::value(std::string_view name) const {
  const Json* found = find(name);
  if (found == nullptr) fail(name, "is missing");
  return *found;
}

std::string Parameters::text(std::string_view name) const {
  const Json& given = value(name);
  if (!given.is_string()) fail(name, "is no text");
  return given.get<std::string>();
}

std::int32_t Parameters::number(std::string_view name) const {
  const Json& given = value(name);
  if (!given.is_number_integer() || !isInRange(given)) fail(name, "is no whole number of 32 bits");
  return given.get<std::int32_t>();
}

std::span<const Json> Parameters::list(std::string_view name) const {
  const Json* found = find(name);
  if (found == nullptr) return {};
  if (!found->is_array()) fail(name, "is no list");
  return found->get_ref<const Json::array_t&>();
}

const Json* Parameters::find(std::string_view name) const {
  const auto found = params_.find(name);
  return found == params_.end() ? nullptr : &*found;
}

}  // namespace tessara
