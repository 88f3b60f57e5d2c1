#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/CatalogueCommand.h"

namespace tessara {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(CatalogueCommand, PrintsVerdictAndTableOfAValidCatalogue) {
  std::ostringstream out;
  EXPECT_TRUE(runCatalogueCheck({TESSARA_SAMPLE_CATALOGUE}, out));
  EXPECT_THAT(out.str(), StartsWith(std::string(TESSARA_SAMPLE_CATALOGUE) + ": loads\nLine  "));
  EXPECT_THAT(out.str(), HasSubstr("HV1.02"));
}

TEST(CatalogueCommand, FailsIfOneOfSeveralFilesIsBad) {
  std::ostringstream out;
  EXPECT_FALSE(runCatalogueCheck({"none.xml", TESSARA_SAMPLE_CATALOGUE}, out));
  EXPECT_THAT(out.str(), HasSubstr("none.xml: the file cannot be read\n"));
  EXPECT_THAT(out.str(), HasSubstr(std::string(TESSARA_SAMPLE_CATALOGUE) + ": loads\n"));
}

}  // namespace
}  // namespace tessara
