#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTableView>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <set>
#include <vector>

#include "HostBench.h"
#include "RecordWindow.h"
#include "record/RecordRows.h"

namespace tessara::testing {
namespace {

/// The windows of the host in each of the languages, by number.
class HostLanguagesTest : public HostBench, public ::testing::WithParamInterface<std::int16_t> {
 protected:
  HostLanguagesTest() {
    control().put_Language(GetParam());
    control().UserControl_Show();
    window->controlIsUp();
  }

  RecordSheet sheet() {
    window->read();
    return window->sheetOf(window->record().value());
  }
  static QStringList textsOf(const QList<QAction*>& actions) {
    QStringList texts;
    for (const QAction* action : actions) texts += action->text();
    return texts;
  }
  /// The texts with access keys have a different one each.
  static void expectDifferentAccessKeys(const QStringList& texts) {
    std::set<QString> keys;
    for (const QString& text : texts) {
      const QString key = QKeySequence::mnemonic(text).toString();
      EXPECT_TRUE(key.isEmpty() || keys.insert(key).second) << text.toStdString();
    }
  }
  static void expectWholeButtons(const QWidget& shown) {
    QStringList texts;
    const auto buttons = shown.findChildren<QPushButton*>();
    EXPECT_EQ(buttons.size(), 4);
    for (const QPushButton* button : buttons) {
      const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
      EXPECT_GE(button->width(), text.width() + 20) << button->text().toStdString();
      EXPECT_FALSE(QKeySequence::mnemonic(button->text()).isEmpty())
          << button->text().toStdString();
      texts += button->text();
    }
    expectDifferentAccessKeys(texts);
  }
};

INSTANTIATE_TEST_SUITE_P(AllEleven, HostLanguagesTest, ::testing::Range<std::int16_t>(1, 12));

TEST_P(HostLanguagesTest, MenusHaveTheLanguageOfThePanel) {
  const std::vector<QString> fileMenus{"&Datei",   "&File",     "&Fichier",    "&Archivo",
                                       "&File",    "&Ficheiro", "&Dosya",      "&Файл",
                                       "文件(&F)", "&Plik",     "ファイル(&F)"};
  EXPECT_EQ(window->menuBar()->actions()[0]->text(),
            fileMenus.at(static_cast<std::size_t>(GetParam() - 1)));
}

TEST_P(HostLanguagesTest, AccessKeysOfAMenuDiffer) {
  expectDifferentAccessKeys(textsOf(window->menuBar()->actions()));
  for (const QAction* menu : window->menuBar()->actions()) {
    expectDifferentAccessKeys(textsOf(menu->menu()->actions()));
  }
}

TEST_P(HostLanguagesTest, ColumnTitlesAndButtonsOfTheEventsAreWhole) {
  press(Qt::Key_E, Qt::ControlModifier);
  const auto* events = window->findChild<QWidget*>("events");
  ASSERT_NE(events, nullptr);
  const QHeaderView& titles = *events->findChild<QTableView*>()->horizontalHeader();
  for (int column = 0; column < EventLog::columns; ++column) {
    EXPECT_LE(titles.sectionSizeHint(column), titles.sectionSize(column)) << column;
  }
  expectWholeButtons(*events);
}

TEST_P(HostLanguagesTest, ButtonsOfARecordAreWhole) {
  RecordWindow record(sheet(), "a.json", *settings);
  record.setAttribute(Qt::WA_DeleteOnClose, false);
  record.show();
  expectWholeButtons(record);
}

TEST_P(HostLanguagesTest, CaptionsOfARecordTakeOneLine) {
  const RecordSheet shown = sheet();
  std::set<QString> captions;
  for (const RecordSection& section : recordSections(shown.record, *shown.texts)) {
    for (const RecordRow& row : section.rows) captions.insert(row.caption);
  }
  const auto page = recordDocument(shown, RecordInk::paper(), 1);
  constexpr double pageWidth = 680;
  page->setTextWidth(pageWidth);
  ASSERT_GT(page->size().height(), 0);
  std::size_t found = 0;
  for (QTextBlock block = page->begin(); block.isValid(); block = block.next()) {
    if (captions.contains(block.text())) {
      EXPECT_EQ(block.layout()->lineCount(), 1) << block.text().toStdString();
      ++found;
    }
  }
  EXPECT_GE(found, captions.size());
}

}  // namespace
}  // namespace tessara::testing
