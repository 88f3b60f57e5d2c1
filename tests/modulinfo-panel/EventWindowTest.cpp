#include <QFile>
#include <QPushButton>
#include <QScrollBar>

#include "EventWindow.h"
#include "HostBench.h"

namespace tessara::testing {
namespace {

class EventWindowTest : public HostBench {
 protected:
  EventWindow* events() {
    return dynamic_cast<EventWindow*>(window->findChild<QWidget*>("events"));
  }
  QTableView& table() { return *events()->findChild<QTableView*>(); }
  EventWindow& opened() {
    press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_NE(events(), nullptr);
    activate(*events());
    return *events();
  }
  QPushButton* button(const QString& text) {
    for (QPushButton* found : events()->findChildren<QPushButton*>()) {
      if (found->text().remove('&') == text) return found;
    }
    return nullptr;
  }
};

TEST_F(EventWindowTest, ShowsEventsFromBeforeItWasOpened) {
  window->read();
  opened();
  EXPECT_EQ(table().model()->rowCount(), log.rowCount());
  EXPECT_GT(log.rowCount(), 0);
}

TEST_F(EventWindowTest, FollowsTheNewestEvent) {
  opened();
  for (int i = 0; i < 200; ++i) log.add(HostEvent{QString::number(i), {}});
  EXPECT_TRUE(QTest::qWaitFor([&] {
    const auto* bar = table().verticalScrollBar();
    return bar->maximum() > 0 && bar->value() == bar->maximum();
  }));
}

TEST_F(EventWindowTest, StaysWhereTheUserHasScrolledTo) {
  for (int i = 0; i < 200; ++i) log.add(HostEvent{QString::number(i), {}});
  opened();
  table().scrollToTop();
  log.add(HostEvent{"newest", {}});
  QApplication::processEvents();
  EXPECT_EQ(table().verticalScrollBar()->value(), 0);
}

TEST_F(EventWindowTest, IsDetachedFromTheLogWhileHidden) {
  pressIn(opened(), Qt::Key_Escape);
  EXPECT_FALSE(events()->isVisible());
  EXPECT_EQ(table().model(), nullptr);
}

TEST_F(EventWindowTest, ClosesWithTheKeysThatOpenIt) {
  pressIn(opened(), Qt::Key_E, Qt::ControlModifier);
  EXPECT_FALSE(events()->isVisible());
}

TEST_F(EventWindowTest, QuitsTheProgramWithTheSameKeys) {
  pressIn(opened(), Qt::Key_Q, Qt::ControlModifier);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(EventWindowTest, OpensAgainWithTheSameKeys) {
  pressIn(opened(), Qt::Key_Escape);
  opened();
  EXPECT_TRUE(events()->isVisible());
}

TEST_F(EventWindowTest, SavesTheEventsAsText) {
  window->read();
  dialogs.chooseFile(path("events.txt"));
  pressIn(opened(), Qt::Key_S, Qt::ControlModifier);
  QFile file(path("events.txt"));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString text = QString::fromUtf8(file.readAll());
  EXPECT_TRUE(text.startsWith("Time\tFrom\tEvent\tResult\tms\n")) << text.toStdString();
  EXPECT_TRUE(text.contains("ModulActive(1)"));
  EXPECT_EQ(text.count('\n'), log.rowCount() + 1);
}

TEST_F(EventWindowTest, ReportsAFileThatCannotBeWritten) {
  dialogs.chooseFile(path("absent/events.txt"));
  dialogs.acceptBox();
  pressIn(opened(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(dialogs.boxes().size(), 1);
}

TEST_F(EventWindowTest, CopiesTheSelectedRows) {
  log.clear();
  for (int i = 0; i < 5; ++i) log.add(HostEvent{QString("row%1").arg(i), {}});
  opened();
  table().selectRow(1);
  QTest::keyClick(&table(), Qt::Key_Down, Qt::ShiftModifier);
  QGuiApplication::clipboard()->clear();
  pressIn(*events(), Qt::Key_C, Qt::ControlModifier);
  const QString text = QGuiApplication::clipboard()->text();
  EXPECT_EQ(text.count('\n'), 2) << text.toStdString();
  EXPECT_TRUE(text.contains("row1") && text.contains("row2"));
}

TEST_F(EventWindowTest, CopiesAllWithNothingSelected) {
  window->read();
  opened();
  table().clearSelection();
  QTest::mouseClick(button("Copy"), Qt::LeftButton);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), log.text());
}

TEST_F(EventWindowTest, ClearsTheEvents) {
  window->read();
  opened();
  QTest::mouseClick(button("Clear"), Qt::LeftButton);
  EXPECT_EQ(log.rowCount(), 0);
  EXPECT_EQ(table().model()->rowCount(), 0);
}

TEST_F(EventWindowTest, RemembersItsSize) {
  opened().resize(900, 400);
  pressIn(*events(), Qt::Key_Escape);
  EventWindow again(log, *settings);
  EXPECT_EQ(again.size(), QSize(900, 400));
}

}  // namespace
}  // namespace tessara::testing
