#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "serve/JsonRpc.h"

namespace tessara {

/// The parameters of one request, by name. What is missing or of the wrong kind is told as RpcError
/// (wrong parameters) with the parameter's name.
class Parameters {
 public:
  /// `params` outlives this. It is an object, or an empty list, which stands for none; a parameter
  /// that is none of `known` is wrong.
  Parameters(const Json& params, std::span<const std::string_view> known);

  [[nodiscard]] bool has(std::string_view name) const { return find(name) != nullptr; }
  [[nodiscard]] const Json& value(std::string_view name) const;
  [[nodiscard]] std::string text(std::string_view name) const;
  /// A whole number in the range of a signed 32-bit one.
  [[nodiscard]] std::int32_t number(std::string_view name) const;
  /// A list; an empty one if the parameter was left out.
  [[nodiscard]] std::span<const Json> list(std::string_view name) const;

 private:
  [[nodiscard]] const Json* find(std::string_view name) const;

  const Json& params_;
};

}  // namespace tessara
