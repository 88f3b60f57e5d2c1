#include <QFile>
#include <QGuiApplication>
#include <QPalette>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

#include <gtest/gtest.h>

#include "InLanguage.h"
#include "SampleRecord.h"
#include "SampleTexts.h"
#include "report/RecordReport.h"

namespace tessara::testing {
namespace {

class ReportTest : public ::testing::Test {
 protected:
  RecordSheet sheet() { return {record, &texts.tables, {}}; }

  /// The printed page.
  QImage painted() {
    QImage page(794, 1123, QImage::Format_RGB32);
    page.fill(Qt::white);
    QPainter painter(&page);
    paintPage(sheet(), painter, page.size());
    return page;
  }

  ModuleRecord record = sampleRecord();
  GermanTexts texts;
  InLanguage german{u"dlg"};
  QTemporaryDir folder;
};

/// The rows of the page that have something on them.
std::vector<bool> inked(const QImage& page) {
  std::vector<bool> rows;
  for (int y = 0; y < page.height(); ++y) {
    bool any = false;
    for (int x = 0; x < page.width() && !any; ++x) any = page.pixel(x, y) != 0xffffffff;
    rows.push_back(any);
  }
  return rows;
}

TEST_F(ReportTest, IsOnePage) {
  const QString path = folder.filePath("a.pdf");
  writeReport(sheet(), path);
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray pdf = file.readAll();
  EXPECT_TRUE(pdf.startsWith("%PDF-"));
  EXPECT_TRUE(pdf.contains("/Count 1"));
  EXPECT_TRUE(pdf.contains("/MediaBox [0 0 595"));
}

TEST_F(ReportTest, IsOnePageEvenWithLongTexts) {
  for (QString* text : {&record.status.module, &record.status.channel, &record.module.description,
                        &record.catalogue.product}) {
    *text = QString("Bereichsüberschreitung ").repeated(200);
  }
  record.module.name = QString("X").repeated(2000);
  const auto rows = inked(painted());
  // The band above the footer is empty.
  EXPECT_TRUE(rows[100]);
  EXPECT_FALSE(rows[rows.size() - 33]);
}

TEST_F(ReportTest, IsDarkOnWhiteEvenInADarkTheme) {
  const QPalette usual = QGuiApplication::palette();
  const QImage light = painted();
  QPalette dark(QColor(0x2b2d31), QColor(0x24262a));
  dark.setColor(QPalette::Text, Qt::white);
  dark.setColor(QPalette::WindowText, Qt::white);
  QGuiApplication::setPalette(dark);
  const QImage inTheDark = painted();
  QGuiApplication::setPalette(usual);
  EXPECT_EQ(light, inTheDark);
}

TEST_F(ReportTest, HasThePictureOfTheState) {
  const QImage faulty = painted();
  record.status.picture = 1;
  const QImage healthy = painted();
  record.status.picture.reset();
  const QImage unknown = painted();
  EXPECT_NE(faulty, healthy);
  EXPECT_NE(unknown, healthy);
}

TEST_F(ReportTest, HasTheLogoIfThereIsOne) {
  RecordSheet marked = sheet();
  marked.logo = Picture::application();
  const auto page = recordDocument(marked, RecordInk::paper(), 1);
  EXPECT_TRUE(page->toHtml().contains("src=\"logo\""));
  EXPECT_FALSE(recordDocument(sheet(), RecordInk::paper(), 1)->toHtml().contains("src=\"logo\""));
}

TEST_F(ReportTest, BreaksNoLineWithinAnArrow) {
  record.status.module = QString("11 -> Ошибка ").repeated(40);
  const auto page = recordDocument(sheet(), RecordInk::paper(), 1);
  for (int width = 300; width < 700; width += 7) {
    page->setTextWidth(width);
    for (QTextBlock block = page->begin(); block.isValid(); block = block.next()) {
      for (int i = 0; i < block.layout()->lineCount(); ++i) {
        const QTextLine line = block.layout()->lineAt(i);
        EXPECT_FALSE(block.text().mid(line.textStart(), line.textLength()).endsWith('-')) << width;
      }
    }
  }
}

TEST_F(ReportTest, ReportsAFileThatCannotBeWritten) {
  try {
    writeReport(sheet(), folder.filePath("absent/a.pdf"));
    FAIL() << "written";
  } catch (const RecordError& error) {
    EXPECT_TRUE(QString(error.what()).contains("absent/a.pdf cannot be written: "));
  }
}

}  // namespace
}  // namespace tessara::testing
