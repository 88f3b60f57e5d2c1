#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "SampleRecord.h"
#include "record/RecordFile.h"

namespace tessara::testing {
namespace {

class RecordFileTest : public ::testing::Test {
 protected:
  [[nodiscard]] QString path(const QString& name) const { return folder.filePath(name); }

  void write(const QString& name, const QByteArray& bytes) const {
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }

  /// What reading that file is refused with.
  [[nodiscard]] QString refusal(const QString& name) const {
    try {
      (void)readRecord(path(name));
    } catch (const RecordError& error) {
      return error.what();
    }
    return {};
  }

  QTemporaryDir folder;
};

TEST_F(RecordFileTest, OpensWhatItSaved) {
  writeRecord(sampleRecord(), path("a.json"));
  EXPECT_EQ(readRecord(path("a.json")), sampleRecord());
}

TEST_F(RecordFileTest, ReplacesAnOlderFileAndLeavesNothingElseBehind) {
  write("a.json", QByteArray(100'000, 'x'));
  writeRecord(sampleRecord(), path("a.json"));
  EXPECT_EQ(readRecord(path("a.json")), sampleRecord());
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("a.json"));
}

TEST_F(RecordFileTest, NamesAFileThatCannotBeWritten) {
  try {
    writeRecord(sampleRecord(), path("absent/a.json"));
    FAIL() << "written";
  } catch (const RecordError& error) {
    EXPECT_TRUE(QString(error.what()).startsWith(path("absent/a.json") + " cannot be written: "))
        << error.what();
  }
}

TEST_F(RecordFileTest, NamesAFileThatCannotBeRead) {
  EXPECT_TRUE(refusal("absent.json").startsWith(path("absent.json") + " cannot be read: "));
  EXPECT_TRUE(refusal(".").contains(" cannot be read: ")) << refusal(".").toStdString();
}

TEST_F(RecordFileTest, RefusesAFileThatIsTooLarge) {
  write("film.json", QByteArray(qsizetype{300} * 1024, ' '));
  EXPECT_EQ(refusal("film.json"), "film.json is not a module record: it is larger than 256 KB.");
}

TEST_F(RecordFileTest, RefusesAnEmptyFileAndAPicture) {
  write("empty.json", "");
  EXPECT_TRUE(refusal("empty.json").startsWith("empty.json is not a module record: invalid JSON"));
  write("picture.json", "\x89PNG\r\n\x1a\n");
  EXPECT_TRUE(refusal("picture.json").startsWith("picture.json is not a module record: invalid"));
}

TEST(SuggestedFileName, IsMadeOfNameAndSerialNumber) {
  ModuleRecord record = sampleRecord();
  record.module.serialNumber = "4711";
  EXPECT_EQ(suggestedFileName(record), "TESSARA-TM-151-4711.json");
}

TEST(SuggestedFileName, HasNoSignThatAFileSystemOrAShellStumblesOver) {
  ModuleRecord record = sampleRecord();
  record.module.serialNumber = "";
  record.module.name = R"(../Pt100 / "2-wire" *?<>|:;&$`\)";
  EXPECT_EQ(suggestedFileName(record), "Pt100-2-wire.json");
  record.module.name = "-rf .";
  EXPECT_EQ(suggestedFileName(record), "rf.json");
  record.module.name = QString::fromUtf8("Messumformer Ä 温度");
  EXPECT_EQ(suggestedFileName(record), QString::fromUtf8("Messumformer-Ä-温度.json"));
}

TEST(SuggestedFileName, IsThereForAModuleWithoutNameAndNumber) {
  ModuleRecord record = sampleRecord();
  record.module.name = record.module.serialNumber = "";
  EXPECT_EQ(suggestedFileName(record), "module.json");
}

}  // namespace
}  // namespace tessara::testing
