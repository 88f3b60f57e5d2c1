#include <clocale>
#include <cstdlib>

#include "SettingsFolder.h"
#include "linux/LinuxLocale.h"

/// The C library does not free the parts of LOCPATH, which only these tests set.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's name
extern "C" const char* __lsan_default_suppressions() {
  return "leak:argz_add_sep";
}

namespace tessara::testing {
namespace {

/// A test in which the German and the French locale are installed, whatever the machine has.
class LocaleTest : public SettingsFolder {
 protected:
  LocaleTest() {
    for (const char* name : {"LC_ALL", "LC_NUMERIC", "LC_TELEPHONE", "LANG", "LANGUAGE"}) {
      ::unsetenv(name);
    }
    ::setenv("LOCPATH", folder().c_str(), 1);
  }

  void install(const std::string& name) const {
    const std::string command = "localedef --no-archive -i " + name + " -f UTF-8 " +
                                (folder() / (name + ".UTF-8")).string() + " >/dev/null 2>&1";
    ASSERT_EQ(std::system(command.c_str()), 0) << "localedef and the locale sources are needed";
  }
};

void expectPosix(const LinuxLocale& locale) {
  EXPECT_EQ(locale.decimalSeparator(), u".");
  EXPECT_EQ(locale.countryCodeSize(), 0);
  EXPECT_EQ(locale.countryCode(8), std::nullopt);
}

TEST_F(LocaleTest, GermanHasACommaAndFortyNine) {
  install("de_DE");
  ::setenv("LANG", "de_DE.UTF-8", 1);
  const LinuxLocale locale;
  EXPECT_EQ(locale.decimalSeparator(), u",");
  EXPECT_EQ(locale.countryCodeSize(), 3);
  EXPECT_EQ(locale.countryCode(3), std::u16string(u"49\0", 3));
  EXPECT_EQ(locale.countryCode(2), std::nullopt);
}

TEST_F(LocaleTest, TakesEachAnswerFromItsOwnCategory) {
  install("de_DE");
  install("en_US");
  ::setenv("LANG", "de_DE.UTF-8", 1);
  ::setenv("LC_NUMERIC", "en_US.UTF-8", 1);
  const LinuxLocale locale;
  EXPECT_EQ(locale.decimalSeparator(), u".");
  EXPECT_EQ(locale.countryCode(3), std::u16string(u"49\0", 3));
}

TEST_F(LocaleTest, PosixHasAPointAndNoCountry) {
  ::setenv("LC_ALL", "POSIX", 1);
  expectPosix(LinuxLocale());
}

TEST_F(LocaleTest, ALocaleThatIsNotInstalledCountsAsPosix) {
  ::setenv("LC_ALL", "de_AT.UTF-8", 1);
  expectPosix(LinuxLocale());
}

TEST_F(LocaleTest, LeavesTheProgramsOwnLocaleAlone) {
  install("de_DE");
  ::setenv("LANG", "de_DE.UTF-8", 1);
  const LinuxLocale locale;
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

}  // namespace
}  // namespace tessara::testing
