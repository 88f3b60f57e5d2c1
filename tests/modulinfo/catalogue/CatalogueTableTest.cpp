#include <gtest/gtest.h>

#include "catalogue/CatalogueTable.h"

namespace tessara {
namespace {

TEST(CatalogueTable, AlignsItsColumnsAndMarksMissingValues) {
  const CatalogueEntry full{12,
                            {"49", "16"},
                            {"161", "0", "further"},
                            {"1.000", "2024", "é", "60", "61", "62", "63", "64", "65", "1", "0"},
                            {"ProductLink", "DatasheetEN"}};
  const CatalogueEntry bare{20, {"49"}, {"éé"}, {}, {}};
  EXPECT_EQ(catalogueTable({full, bare}),
            "Line  Vendor  Family  Device  HideFw  Firmware  DevStatus  ChnIn  DevError  ChnOut  "
            "LedStatus  Reserved  StringsReverse  QuickSetup  Links\n"
            "12    49      16      161     0       1.000     60         61     62        63      "
            "64         65        1               0           ProductLink DatasheetEN\n"
            "20    49      -       éé      -       -         -          -      -         -       "
            "-          -         -               -           -\n");
}

TEST(CatalogueTable, IsEmptyWithoutEntries) {
  EXPECT_EQ(catalogueTable({}), "");
}

}  // namespace
}  // namespace tessara
