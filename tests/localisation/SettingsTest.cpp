#include <map>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "localisation/ErrorOf.h"
#include "localisation/Settings.h"

namespace tessara {
namespace {

using ::testing::ElementsAre;
using testing::errorNumberOf;
using testing::errorOf;
using ::testing::IsEmpty;

struct Write {
  std::int32_t hive;
  std::u16string key;
  std::u16string name;
  Variant value;
  std::int32_t type;
  bool operator==(const Write&) const = default;
};

struct Read {
  std::int32_t hive;
  std::u16string key;
  std::u16string name;
  bool operator==(const Read&) const = default;
};

constexpr std::int32_t localMachine = 2002;
constexpr std::int32_t numberType = 4004;

/// Settings in memory that remember every call.
class RecordingRegistry : public RegistryHelper {
 public:
  [[nodiscard]] std::int32_t ValueTypeNumber() const override { return numberType; }
  [[nodiscard]] std::int32_t HKeyCurrentUser() const override { return 1001; }
  [[nodiscard]] std::int32_t HKeyLocalMachine() const override { return localMachine; }
  void SetValue(std::int32_t hive, const std::u16string& key, const std::u16string& name,
                const Variant& value, std::int32_t valueType) override {
    if (readOnly) {
      throw RunTimeError(ErrorNumber::InvalidCall, "no right to write");
    }
    writes.push_back({hive, key, name, value, valueType});
  }
  [[nodiscard]] Variant GetValue(std::int32_t hive, const std::u16string& key,
                                 const std::u16string& name) override {
    reads.push_back({hive, key, name});
    return values[name];
  }

  std::map<std::u16string, Variant> values;
  std::vector<Write> writes;
  std::vector<Read> reads;
  bool readOnly = false;
};

const std::u16string key = u"Software\\Orvane\\Tessara-Conf\\Settings";

TEST(Settings, ComPortIsWrittenAsA32BitNumberUnderTheLocalMachine) {
  RecordingRegistry registry;
  SaveComPort(registry, 999);
  EXPECT_THAT(registry.writes, ElementsAre(Write{localMachine, key, u"COM Port",
                                                 Variant{std::int64_t{999}}, numberType}));
  EXPECT_THAT(registry.reads, IsEmpty());
}

TEST(Settings, LanguageIsWrittenAsA32BitNumberUnderTheLocalMachine) {
  RecordingRegistry registry;
  SaveLanguage(registry, -1);
  EXPECT_THAT(registry.writes, ElementsAre(Write{localMachine, key, u"Language",
                                                 Variant{std::int64_t{-1}}, numberType}));
}

TEST(Settings, ErrorOfTheStoreReachesTheCaller) {
  RecordingRegistry registry;
  registry.readOnly = true;
  EXPECT_EQ(errorNumberOf([&] { SaveComPort(registry, 3); }), ErrorNumber::InvalidCall);
  EXPECT_EQ(errorNumberOf([&] { SaveLanguage(registry, 3); }), ErrorNumber::InvalidCall);
}

TEST(Settings, NumberIsReadFromTheSettingsKey) {
  RecordingRegistry registry;
  registry.values[u"ShowBaudrateSelection"] = std::int64_t{1};
  EXPECT_EQ(ReadNumber(registry, u"ShowBaudrateSelection", u"."), 1);
  EXPECT_THAT(registry.reads, ElementsAre(Read{localMachine, key, u"ShowBaudrateSelection"}));
}

TEST(Settings, EveryReadAccessesTheStore) {
  RecordingRegistry registry;
  registry.values[u"ShowAllComPorts"] = std::int64_t{1};
  (void)ReadNumber(registry, u"ShowAllComPorts", u".");
  registry.values[u"ShowAllComPorts"] = std::int64_t{0};
  EXPECT_EQ(ReadNumber(registry, u"ShowAllComPorts", u"."), 0);
  EXPECT_EQ(registry.reads.size(), 2U);
}

TEST(Settings, MissingNumberIsZero) {
  RecordingRegistry registry;
  EXPECT_EQ(ReadNumber(registry, u"ShowAddressSelection", u"."), 0);
}

TEST(Settings, NegativeNumberKeepsItsSign) {
  RecordingRegistry registry;
  registry.values[u"ShowBaudrateSelection"] = std::int64_t{-1};
  EXPECT_EQ(ReadNumber(registry, u"ShowBaudrateSelection", u"."), -1);
}

TEST(Settings, TextIsReadAsANumberInTheSystemsNotation) {
  RecordingRegistry registry;
  registry.values[u"ShowAllComPorts"] = std::u16string{u"1,0"};
  EXPECT_EQ(ReadNumber(registry, u"ShowAllComPorts", u","), 1);
}

TEST(Settings, TextThatIsNotANumberIsAConversionErrorThatNamesTheSetting) {
  RecordingRegistry registry;
  registry.values[u"ShowAllComPorts"] = std::u16string{u"yes"};
  const auto error = errorOf([&] { (void)ReadNumber(registry, u"ShowAllComPorts", u"."); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), ErrorNumber::TypeMismatch);
  EXPECT_STREQ(error->what(), R"(The setting ShowAllComPorts: "yes" is not a number)");
}

TEST(Settings, NumberAboveSixteenBitsIsAnOverflowThatNamesTheSetting) {
  RecordingRegistry registry;
  registry.values[u"ShowBaudrateSelection"] = std::int64_t{32768};
  const auto error = errorOf([&] { (void)ReadNumber(registry, u"ShowBaudrateSelection", u"."); });
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), ErrorNumber::Overflow);
  EXPECT_STREQ(error->what(),
               "The setting ShowBaudrateSelection: 32768 is outside the range of a 16-bit number");
}

TEST(Settings, TextIsReadFromTheSettingsKey) {
  RecordingRegistry registry;
  registry.values[u"Logo"] = std::u16string{u"maker.png"};
  EXPECT_EQ(ReadText(registry, u"Logo", u"."), u"maker.png");
  EXPECT_THAT(registry.reads, ElementsAre(Read{localMachine, key, u"Logo"}));
}

TEST(Settings, MissingTextIsEmpty) {
  RecordingRegistry registry;
  EXPECT_EQ(ReadText(registry, u"Icon", u"."), u"");
}

TEST(Settings, NumberIsReadAsItsText) {
  RecordingRegistry registry;
  registry.values[u"Icon"] = 1.5;
  EXPECT_EQ(ReadText(registry, u"Icon", u","), u"1,5");
}

}  // namespace
}  // namespace tessara
