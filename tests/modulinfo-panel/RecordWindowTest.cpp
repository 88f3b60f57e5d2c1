#include <QClipboard>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBrowser>

#include <gtest/gtest.h>

#include "DialogDriver.h"
#include "InLanguage.h"
#include "RecordWindow.h"
#include "SampleRecord.h"
#include "SampleTexts.h"
#include "record/RecordRows.h"

namespace tessara::testing {
namespace {

class RecordWindowTest : public ::testing::Test {
 protected:
  RecordWindowTest() {
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    settings.emplace(true);
    settings->keepFolder(folder.path());
    show();
  }
  ~RecordWindowTest() override { delete window; }

  void show() {
    window = new RecordWindow(sheet(), "/somewhere/a.json", *settings);
    window->show();
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
  }

  RecordSheet sheet() { return {sampleRecord(), &texts.tables, {}}; }
  QTextBrowser& page() { return *window->findChild<QTextBrowser*>(); }
  QPushButton* button(const QString& text) {
    for (QPushButton* found : window->findChildren<QPushButton*>()) {
      if (found->text().remove('&') == text) return found;
    }
    return nullptr;
  }

  QTemporaryDir folder;
  GermanTexts texts;
  InLanguage german{u"dlg"};
  std::optional<HostSettings> settings;
  QPointer<RecordWindow> window;
  DialogDriver dialogs;
};

TEST_F(RecordWindowTest, SaysThatItIsARecordAndOfWhatTime) {
  EXPECT_EQ(window->windowTitle(), "Protokoll: a.json - Modul-Information");
  EXPECT_EQ(window->findChild<QLabel*>("banner")->text(),
            "Protokoll vom 17. Mai 2024, 08:04:59 (UTC+02:00) aus der Datei a.json: nicht der "
            "jetzige Zustand des Moduls.");
}

TEST_F(RecordWindowTest, ShowsEveryValue) {
  constexpr QChar wordJoiner(0x2060);
  const QString shown = page().toPlainText().remove(wordJoiner);
  for (const RecordSection& section : recordSections(sampleRecord(), texts.tables)) {
    EXPECT_TRUE(shown.contains(section.title)) << section.title.toStdString();
    for (const RecordRow& row : section.rows) {
      EXPECT_TRUE(shown.contains(row.value)) << row.value.toStdString();
    }
  }
}

TEST_F(RecordWindowTest, ShowsMarkupInARecordAsText) {
  RecordSheet odd = sheet();
  odd.record.module.name = "<b>bold</b> & <img src=x>";
  RecordWindow other(odd, "b.json", *settings);
  other.setAttribute(Qt::WA_DeleteOnClose, false);
  EXPECT_TRUE(
      other.findChild<QTextBrowser*>()->toPlainText().contains("<b>bold</b> & <img src=x>"));
}

TEST_F(RecordWindowTest, StartsWithTheFocusOnThePage) {
  EXPECT_TRUE(page().hasFocus());
}

TEST_F(RecordWindowTest, TabReachesEveryButton) {
  std::set<QString> reached;
  for (int i = 0; i < 8; ++i) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    if (auto* found = qobject_cast<QPushButton*>(QApplication::focusWidget())) {
      reached.insert(found->text());
    }
  }
  EXPECT_EQ(reached.size(), 4U);
}

TEST_F(RecordWindowTest, CopiesTheRecordAsText) {
  QGuiApplication::clipboard()->clear();
  QTest::mouseClick(button("Kopieren"), Qt::LeftButton);
  EXPECT_TRUE(QGuiApplication::clipboard()->text().startsWith("Modulprotokoll\n"));
  EXPECT_EQ(window->findChild<QLabel*>("message")->text(), "Als Text kopiert");
}

TEST_F(RecordWindowTest, SavesItselfAsPdf) {
  dialogs.chooseFile(folder.filePath("a.pdf"));
  QTest::mouseClick(button("Als PDF speichern …"), Qt::LeftButton);
  EXPECT_TRUE(QFile::exists(folder.filePath("a.pdf")));
}

TEST_F(RecordWindowTest, PrintsThroughAPreview) {
  bool came = false;
  dialogs.look([&](QDialog& dialog) { came = dialog.inherits("QPrintPreviewDialog"); });
  QTest::keyClick(&page(), Qt::Key_P, Qt::ControlModifier);
  EXPECT_TRUE(came);
}

TEST_F(RecordWindowTest, EscapeDeletesIt) {
  QTest::keyClick(&page(), Qt::Key_Escape);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.isNull(); }));
}

TEST_F(RecordWindowTest, RemembersItsSize) {
  window->resize(700, 500);
  window->close();
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.isNull(); }));
  show();
  EXPECT_EQ(window->size(), QSize(700, 500));
}

TEST_F(RecordWindowTest, FollowsTheColoursOfTheSystem) {
  QPalette dark(QColor(0x2b2d31), QColor(0x24262a));
  dark.setColor(QPalette::Base, QColor(0x1d1f22));
  dark.setColor(QPalette::Text, QColor(0xe4e6e9));
  window->setPalette(dark);
  EXPECT_TRUE(page().document()->toHtml().contains("#e4e6e9"));
}

}  // namespace
}  // namespace tessara::testing
