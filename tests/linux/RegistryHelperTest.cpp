#include <functional>
#include <optional>

#include <gmock/gmock.h>

#include "SettingsFolder.h"
#include "base/RunTimeError.h"
#include "linux/LinuxRegistryHelper.h"
#include "localisation/Settings.h"

namespace tessara::testing {
namespace {

using ::testing::HasSubstr;

/// A locale with a decimal comma.
class CommaLocale final : public Locale {
 public:
  [[nodiscard]] std::u16string decimalSeparator() const override { return u","; }
  [[nodiscard]] std::int32_t countryCodeSize() const override { return 0; }
  [[nodiscard]] std::optional<std::u16string> countryCode(std::int32_t /*size*/) const override {
    return std::nullopt;
  }
};

const std::u16string settingsKey(tessara::settingsKey);
constexpr const char16_t* internationalKey = u"Control Panel\\International\\";

/// The number of the RunTimeError that `action` ends in; nothing if it succeeds.
std::optional<ErrorNumber> numberOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const RunTimeError& error) {
    return error.number();
  }
  return std::nullopt;
}

class RegistryHelperTest : public SettingsFolder {
 protected:
  CommaLocale locale;
  LinuxRegistryHelper registry{
      locale, [](const std::u16string& key, const std::u16string& name) -> Variant {
        if (key == u"SYSTEM\\CurrentControlSet\\Services\\usbser\\enum" && name == u"Count") {
          return std::int64_t{2};
        }
        return {};
      }};
  std::int32_t machine = registry.HKeyLocalMachine();
  std::int32_t user = registry.HKeyCurrentUser();
};

TEST_F(RegistryHelperTest, NumbersHivesAndTypesAsUsual) {
  EXPECT_EQ(user, -2147483647);
  EXPECT_EQ(machine, -2147483646);
  EXPECT_EQ(registry.ValueTypeNumber(), 4);
}

TEST_F(RegistryHelperTest, ReadsMissingSettingsAsNothing) {
  EXPECT_EQ(registry.GetValue(machine, settingsKey, u"Language"), Variant());
}

TEST_F(RegistryHelperTest, KeepsTheSettingsKeyInTheSettingsFile) {
  registry.SetValue(machine, settingsKey, u"COM Port", std::int64_t{999},
                    registry.ValueTypeNumber());
  EXPECT_EQ(bytesOf(userFile()), "[Settings]\nCOM%20Port=999\n");
  EXPECT_EQ(registry.GetValue(machine, settingsKey, u"COM Port"), Variant(u"999"));
}

TEST_F(RegistryHelperTest, DropsSettingsOfAProgramThatMustNotChangeThem) {
  LinuxRegistryHelper visitor(locale, {}, false);
  visitor.SetValue(machine, settingsKey, u"COM Port", std::int64_t{999}, 4);
  EXPECT_FALSE(std::filesystem::exists(userFile()));
}

TEST_F(RegistryHelperTest, TakesTheDecimalSignFromTheLocale) {
  EXPECT_EQ(registry.GetValue(user, internationalKey, u"sDecimal"), Variant(u","));
  EXPECT_EQ(registry.GetValue(machine, internationalKey, u"sDecimal"), Variant());
  EXPECT_EQ(registry.GetValue(user, internationalKey, u"sThousand"), Variant());
}

TEST_F(RegistryHelperTest, LooksUpOtherKeysOfTheMachineAmongTheDevices) {
  const std::u16string key = u"SYSTEM\\CurrentControlSet\\Services\\usbser\\enum";
  EXPECT_EQ(registry.GetValue(machine, key, u"Count"), Variant(std::int64_t{2}));
  EXPECT_EQ(registry.GetValue(machine, key, u"0"), Variant());
  EXPECT_EQ(registry.GetValue(user, key, u"Count"), Variant());
}

TEST_F(RegistryHelperTest, RefusesToWriteAnythingButSettings) {
  EXPECT_THAT(errorOf([&] { registry.SetValue(user, internationalKey, u"sDecimal", u".", 1); }),
              HasSubstr("sDecimal"));
  EXPECT_FALSE(std::filesystem::exists(userFile()));
}

TEST_F(RegistryHelperTest, RaisesAFileErrorOnABrokenFile) {
  put(userFile(), "rubbish");
  EXPECT_EQ(
      numberOf([&] { static_cast<void>(registry.GetValue(machine, settingsKey, u"Language")); }),
      ErrorNumber::FileAccess);
  EXPECT_EQ(
      numberOf([&] { registry.SetValue(machine, settingsKey, u"Language", std::int64_t{2}, 4); }),
      ErrorNumber::FileAccess);
  EXPECT_EQ(bytesOf(userFile()), "rubbish");
}

TEST_F(RegistryHelperTest, RaisesATypeMismatchOnAValueThatIsNeitherTextNorANumber) {
  for (const char* value : {"@Invalid()", "1, 2", "1,2"}) {
    put(userFile(), "[Settings]\nLanguage=" + std::string(value) + "\n");
    EXPECT_EQ(numberOf([&] { static_cast<void>(ReadNumber(registry, u"Language", u",")); }),
              ErrorNumber::TypeMismatch)
        << value;
  }
}

}  // namespace
}  // namespace tessara::testing
