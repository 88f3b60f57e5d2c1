#include <QHeaderView>
#include <QMenuBar>
#include <QPushButton>
#include <QTableView>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <set>

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
  static void expectWholeTexts(const QWidget& shown) {
    const auto buttons = shown.findChildren<QPushButton*>();
    EXPECT_EQ(buttons.size(), 4);
    for (const QPushButton* button : buttons) {
      const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
      EXPECT_GE(button->width(), text.width() + 20) << button->text().toStdString();
    }
  }
};

INSTANTIATE_TEST_SUITE_P(AllEleven, HostLanguagesTest, ::testing::Range<std::int16_t>(1, 12));

TEST_P(HostLanguagesTest, MenusAndTitleSpeakAsThePanelDoes) {
  const HostTexts words = HostTexts::beside(moduleWide());
  EXPECT_EQ(words.language(), static_cast<HostTexts::Language>(GetParam() - 1));
  EXPECT_EQ(window->menuBar()->actions()[0]->text(), words(Word::MenuFile));
  EXPECT_EQ(window->windowTitle(), words(Word::Title));
}

TEST_P(HostLanguagesTest, TitlesAndButtonsOfTheEventsAreWhole) {
  press(Qt::Key_E, Qt::ControlModifier);
  const auto* events = window->findChild<QWidget*>("events");
  ASSERT_NE(events, nullptr);
  const QHeaderView& titles = *events->findChild<QTableView*>()->horizontalHeader();
  for (int column = 0; column < EventLog::columns; ++column) {
    EXPECT_LE(titles.sectionSizeHint(column), titles.sectionSize(column)) << column;
  }
  expectWholeTexts(*events);
}

TEST_P(HostLanguagesTest, ButtonsOfARecordAreWhole) {
  RecordWindow record(sheet(), "a.json", *settings);
  record.setAttribute(Qt::WA_DeleteOnClose, false);
  record.show();
  expectWholeTexts(record);
}

TEST_P(HostLanguagesTest, CaptionsOfARecordTakeOneLine) {
  const RecordSheet shown = sheet();
  std::set<QString> captions;
  for (const RecordSection& section : recordSections(shown.record, *shown.texts, shown.words)) {
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
