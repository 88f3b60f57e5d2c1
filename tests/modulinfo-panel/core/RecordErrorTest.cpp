#include <gtest/gtest.h>

#include "InLanguage.h"
#include "record/RecordError.h"
#include "record/RecordMessages.h"

namespace tessara::testing {
namespace {

TEST(RecordError, IsEnglishAndHasTheTextInTheLanguageInstalled) {
  const InLanguage german(u"dlg");
  const RecordError error({record_message::fieldMissing, {"a.json", "module.name"}});
  EXPECT_STREQ(error.what(),
               "a.json is a damaged module record: the field module.name is missing.");
  EXPECT_EQ(error.text().toStdString(),
            "a.json ist ein beschädigtes Modulprotokoll: Das Feld module.name fehlt.");
}

TEST(RecordError, TakesArgumentsAsTheyAre) {
  EXPECT_STREQ(RecordError({record_message::unreadable, {"%2.json", "no %1"}}).what(),
               "%2.json cannot be read: no %1");
}

TEST(RecordError, TranslatesTheKindOfAFieldToo) {
  const InLanguage german(u"dlg");
  const RecordError error({record_message::fieldWrong, {"a.json", "language", "12"}},
                          Phrase{record_kind::number, {"0", "11"}});
  EXPECT_STREQ(error.what(),
               "a.json is a damaged module record: the field language is 12 but must be a whole "
               "number from 0 to 11.");
  EXPECT_EQ(error.text().toStdString(),
            "a.json ist ein beschädigtes Modulprotokoll: Das Feld language ist 12 und muss eine "
            "ganze Zahl von 0 bis 11 sein.");
}

}  // namespace
}  // namespace tessara::testing
