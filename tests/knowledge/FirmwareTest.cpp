#include <map>

#include <gtest/gtest.h>

#include "FakePlatform.h"
#include "base/RunTimeError.h"
#include "knowledge/Firmware.h"

namespace tessara {
namespace {

using testing::CallLog;
using testing::FakeRegistryHelper;

class Firmware : public ::testing::Test {
 protected:
  CatalogResult compare(const std::u16string& module, const std::u16string& catalogue,
                        const std::u16string& separator = u".", std::int16_t vendor = 49) {
    settings[u"Control Panel\\International\\|sDecimal"] = separator;
    return compareFirmware(vendor, module, catalogue, registry, separator);
  }

  CallLog log;
  std::map<std::u16string, Variant> settings;
  FakeRegistryHelper registry{log, settings};
};

TEST_F(Firmware, IsNewerEqualOrOlderThanTheCataloguesVersion) {
  EXPECT_EQ(compare(u"1.234", u"1.233"), CatalogResult::CatalogFwNewer);
  EXPECT_EQ(compare(u"1.234", u"1.234"), CatalogResult::CatalogExact);
  EXPECT_EQ(compare(u"1.234", u"1.235"), CatalogResult::CatalogFwOlder);
  EXPECT_EQ(compare(u"10.50", u"9.999"), CatalogResult::CatalogFwNewer);
}

TEST_F(Firmware, IsEqualIfOnlyTheNotationDiffers) {
  for (const auto* separator : {u".", u","}) {
    EXPECT_EQ(compare(u"1.230", u"1,23", separator), CatalogResult::CatalogExact);
    EXPECT_EQ(compare(u"1,23", u"1.230", separator), CatalogResult::CatalogExact);
    EXPECT_EQ(compare(u"1.000", u"1", separator), CatalogResult::CatalogExact);
    EXPECT_EQ(compare(u"2", u"1.999", separator), CatalogResult::CatalogFwNewer);
  }
}

TEST_F(Firmware, IsEqualIfOnlyTheFourthDecimalDiffers) {
  EXPECT_EQ(compare(u"1.2341", u"1.2339"), CatalogResult::CatalogExact);
  EXPECT_EQ(compare(u"1.0625", u"1.062"), CatalogResult::CatalogExact);
  EXPECT_EQ(compare(u"1.6875", u"1.688"), CatalogResult::CatalogExact);
  EXPECT_EQ(compare(u"1.0635", u"1.064"), CatalogResult::CatalogFwOlder);
}

TEST_F(Firmware, ThatIsNotANumberIsATypeMismatchOnEitherSide) {
  const auto mismatch = [&](const std::u16string& module, const std::u16string& catalogue) {
    try {
      (void)compare(module, catalogue);
    } catch (const RunTimeError& error) {
      return error.number() == ErrorNumber::TypeMismatch;
    }
    return false;
  };
  EXPECT_TRUE(mismatch(u"", u"1.000"));
  EXPECT_TRUE(mismatch(u"abc", u"1.000"));
  EXPECT_TRUE(mismatch(u"1.000", u""));
  EXPECT_TRUE(mismatch(u"1.000", u"V1"));
  EXPECT_TRUE(mismatch(u"1.2,3", u"1.000"));
}

TEST_F(Firmware, OfVendor176IsFreeTextThatIsEqualOrHasNoOrder) {
  EXPECT_EQ(compare(u"HV1.02", u"HV1.02", u".", 176), CatalogResult::CatalogExact);
  EXPECT_EQ(compare(u"HV1.02", u"Hv1.02", u".", 176), CatalogResult::CatalogNoVersion);
  EXPECT_EQ(compare(u"2.000", u"1.000", u".", 176), CatalogResult::CatalogNoVersion);
  EXPECT_EQ(compare(u"1.230", u"1.23", u".", 176), CatalogResult::CatalogNoVersion);
  EXPECT_EQ(compare(u"", u"", u".", 176), CatalogResult::CatalogExact);
  EXPECT_TRUE(log.entries().empty());
}

TEST_F(Firmware, ReadsTheSeparatorOnceForEachSide) {
  (void)compare(u"1.000", u"1.000");
  EXPECT_EQ(log.count("GetValue"), 2U);
}

}  // namespace
}  // namespace tessara
