#include "catalogue/Notation.h"

#include <utility>

#include "base/RunTimeError.h"
#include "base/Variant.h"
#include "knowledge/Conversions.h"
#include "platform/RegistryHelper.h"

namespace tessara {
namespace {

/// A system's settings that hold nothing but its decimal separator.
class NotationSettings final : public RegistryHelper {
 public:
  explicit NotationSettings(std::u16string separator) : separator_(std::move(separator)) {}

  [[nodiscard]] std::int32_t ValueTypeNumber() const override { return 0; }
  [[nodiscard]] std::int32_t HKeyCurrentUser() const override { return 0; }
  [[nodiscard]] std::int32_t HKeyLocalMachine() const override { return 0; }

  void SetValue(std::int32_t /*hive*/, const std::u16string& /*key*/,
                const std::u16string& /*name*/, const Variant& /*value*/,
                std::int32_t /*valueType*/) override {
    throw RunTimeError(ErrorNumber::InvalidCall, "checking a catalogue changes no setting");
  }
  [[nodiscard]] Variant GetValue(std::int32_t /*hive*/, const std::u16string& /*key*/,
                                 const std::u16string& /*name*/) override {
    return separator_;
  }

 private:
  std::u16string separator_;
};

/// The result of `convert` if it is the same on all systems, else nothing. `convert` takes the
/// decimal separator of the system.
template <typename Convert>
auto onEverySystem(Convert convert) -> std::optional<decltype(convert(std::u16string{}))> {
  try {
    const auto withComma = convert(u",");
    return convert(u".") == withComma ? std::optional(withComma) : std::nullopt;
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

}  // namespace

std::optional<std::int32_t> wholeNumber(const std::u16string& text) {
  return onEverySystem(
      [&](const std::u16string& separator) { return toInt32(Variant{text}, separator); });
}

std::optional<double> versionNumber(const std::u16string& text) {
  return onEverySystem([&](const std::u16string& separator) {
    NotationSettings settings(separator);
    return RoundToThreeDecimals(toDouble(ToLocaleDecimal(text, settings), separator));
  });
}

}  // namespace tessara
