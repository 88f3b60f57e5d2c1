#include <gmock/gmock.h>

#include "SettingsFolder.h"
#include "base/RunTimeError.h"
#include "linux/LinuxRegistryHelper.h"

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

constexpr const char16_t* settingsKey = u"Software\\Orvane\\Tessara-Conf\\Settings";
constexpr const char16_t* internationalKey = u"Control Panel\\International\\";

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

TEST_F(RegistryHelperTest, AsksTheDevicesForOtherKeysOfTheMachine) {
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

TEST_F(RegistryHelperTest, RaisesARunTimeErrorOnABrokenFile) {
  put(userFile(), "rubbish");
  EXPECT_THROW(static_cast<void>(registry.GetValue(machine, settingsKey, u"Language")),
               RunTimeError);
  EXPECT_THROW(registry.SetValue(machine, settingsKey, u"Language", std::int64_t{2}, 4),
               RunTimeError);
  EXPECT_EQ(bytesOf(userFile()), "rubbish");
}

}  // namespace
}  // namespace tessara::testing
