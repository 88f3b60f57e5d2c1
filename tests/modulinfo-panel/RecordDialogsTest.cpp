#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPrintPreviewWidget>
#include <QTextBrowser>

#include "HostBench.h"
#include "RecordWindow.h"
#include "record/RecordFile.h"

namespace tessara::testing {
namespace {

class RecordDialogsTest : public HostBench {
 protected:
  void write(const QString& name, const QByteArray& bytes) const {
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  [[nodiscard]] QByteArray bytesOf(const QString& name) const {
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  /// The menu entry with that text, access keys and shortcuts aside.
  QAction* entry(const QString& text) {
    for (QAction* menu : window->menuBar()->actions()) {
      for (QAction* action : menu->menu()->actions()) {
        if (action->text().section('\t', 0, 0).remove('&') == text) return action;
      }
    }
    return nullptr;
  }
  RecordWindow* recordWindow() {
    return dynamic_cast<RecordWindow*>(window->findChild<QWidget*>("record"));
  }
  void open(const QString& name) {
    dialogs.chooseFile(path(name));
    press(Qt::Key_O, Qt::ControlModifier);
  }
};

TEST_F(RecordDialogsTest, SavesTheRecordOfTheModule) {
  window->read();
  dialogs.chooseFile(path("mine.json"));
  press(Qt::Key_S, Qt::ControlModifier);
  const ModuleRecord record = readRecord(path("mine.json"));
  EXPECT_EQ(record.module.familyId, 16);
  EXPECT_EQ(record.connection.port, "COM3");
  EXPECT_TRUE(told().startsWith("Saved as ")) << told().toStdString();
  EXPECT_TRUE(told().endsWith("mine.json"));
}

TEST_F(RecordDialogsTest, SuggestsAFileNameFromNameAndSerialNumber) {
  window->read();
  dialogs.chooseFile(path("mine.json"));
  press(Qt::Key_S, Qt::ControlModifier);
  const ModuleRecord record = readRecord(path("mine.json"));
  EXPECT_EQ(dialogs.suggested(), suggestedFileName(record));
}

TEST_F(RecordDialogsTest, AddsAMissingExtension) {
  window->read();
  dialogs.chooseFile(path("mine"));
  press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(QFile::exists(path("mine.json")));
}

TEST_F(RecordDialogsTest, WritesNothingWhenCancelled) {
  window->read();
  const QStringList before = QDir(folder.path()).entryList(QDir::Files);
  dialogs.cancel();
  press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), before);
  EXPECT_FALSE(inside(control()).HostActive);
}

TEST_F(RecordDialogsTest, ReportsAFileThatCannotBeWritten) {
  window->read();
  dialogs.chooseFile(path("absent/mine.json"));
  dialogs.acceptBox();
  press(Qt::Key_S, Qt::ControlModifier);
  ASSERT_EQ(dialogs.boxes().size(), 1);
  EXPECT_TRUE(dialogs.boxes()[0].contains("absent")) << dialogs.boxes()[0].toStdString();
}

TEST_F(RecordDialogsTest, SavesPrintsAndCopiesNothingWithoutAModule) {
  const QString nothing = "No module has been read: nothing to save, print or copy.";
  for (const auto key : {Qt::Key_S, Qt::Key_P, Qt::Key_C}) {
    window->statusBar()->clearMessage();
    press(key, Qt::ControlModifier);
    EXPECT_EQ(told(), nothing) << key;
  }
  window->statusBar()->clearMessage();
  entry("Save as PDF…")->trigger();
  EXPECT_EQ(told(), nothing);
}

TEST_F(RecordDialogsTest, OpensASavedRecordInAWindowWithABanner) {
  window->read();
  dialogs.chooseFile(path("mine.json"));
  press(Qt::Key_S, Qt::ControlModifier);
  open("mine.json");
  ASSERT_NE(recordWindow(), nullptr);
  EXPECT_TRUE(recordWindow()->isVisible());
  const QString banner = recordWindow()->findChild<QLabel*>("banner")->text();
  EXPECT_TRUE(banner.contains("mine.json")) << banner.toStdString();
  EXPECT_TRUE(banner.contains("not the current state of the module"));
  const QString page = recordWindow()->findChild<QTextBrowser*>()->toPlainText();
  EXPECT_TRUE(page.contains(readRecord(path("mine.json")).module.serialNumber));
  EXPECT_TRUE(recordWindow()->findChild<QTextBrowser*>()->isReadOnly());
}

TEST_F(RecordDialogsTest, OpeningARecordLeavesThePanelUnchanged) {
  window->read();
  dialogs.chooseFile(path("mine.json"));
  press(Qt::Key_S, Qt::ControlModifier);
  panel().LabelDeviceName.setCaption(u"ANOTHER");
  open("mine.json");
  EXPECT_EQ(panel().LabelDeviceName.caption(), u"ANOTHER");
}

TEST_F(RecordDialogsTest, ReportsWhyAFileIsNotARecord) {
  const std::vector<std::pair<QByteArray, QString>> files{
      {"", "wrong.json is not a module record: invalid JSON at line 1"},
      {"hello", "wrong.json is not a module record: invalid JSON at line 1"},
      {R"({"format": "other"})", "wrong.json is not a module record: its format is not"},
      {R"({"format": "modulinfo-record", "version": 9})",
       "wrong.json was written by a newer program: it has version 9"},
      {R"({"format": "modulinfo-record", "version": 1})",
       "wrong.json is a damaged module record: the field time is missing."}};
  for (const auto& [bytes, expected] : files) {
    write("wrong.json", bytes);
    dialogs.chooseFile(path("wrong.json"));
    dialogs.acceptBox();
    press(Qt::Key_O, Qt::ControlModifier);
    ASSERT_FALSE(dialogs.boxes().isEmpty());
    EXPECT_TRUE(dialogs.boxes().back().startsWith(expected))
        << dialogs.boxes().back().toStdString();
    EXPECT_EQ(recordWindow(), nullptr);
    EXPECT_FALSE(inside(control()).HostActive);
  }
}

TEST_F(RecordDialogsTest, ThePreviewHasOnePage) {
  window->read();
  int pages = 0;
  dialogs.look([&](QDialog& dialog) {
    auto* preview = dialog.findChild<QPrintPreviewWidget*>();
    ASSERT_NE(preview, nullptr);
    pages = preview->pageCount();
  });
  press(Qt::Key_P, Qt::ControlModifier);
  EXPECT_EQ(pages, 1);
  EXPECT_FALSE(inside(control()).HostActive);
}

TEST_F(RecordDialogsTest, SavesThePageAsPdf) {
  window->read();
  dialogs.chooseFile(path("page.pdf"));
  entry("Save as PDF…")->trigger();
  EXPECT_TRUE(dialogs.suggested().endsWith(".pdf"));
  EXPECT_TRUE(bytesOf("page.pdf").startsWith("%PDF-"));
}

TEST_F(RecordDialogsTest, CopiesTheRecordAsText) {
  window->read();
  QGuiApplication::clipboard()->clear();
  press(Qt::Key_C, Qt::ControlModifier);
  const QString text = QGuiApplication::clipboard()->text();
  EXPECT_TRUE(text.startsWith("Module record\n")) << text.toStdString();
  EXPECT_TRUE(text.contains("Vendor ID:")) << text.toStdString();
  EXPECT_EQ(told(), "Copied as text");
}

TEST_F(RecordDialogsTest, RemembersTheFolder) {
  QDir(folder.path()).mkdir("records");
  window->read();
  dialogs.chooseFile(path("records/mine.json"));
  press(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(QDir(settings->folder()).dirName(), "records");
}

TEST_F(RecordDialogsTest, WaitWithTheirDialogUntilTheReadIsOver) {
  bool wasReading = true;
  bool asked = false;
  platform.loop.onYield = [&] {
    if (std::exchange(asked, true)) return;
    panel().CmdSave2DiskParameter.press();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  };
  dialogs.look([&](QDialog&) { wasReading = control().get_DeviceConnected() != 0; });
  window->read();
  ASSERT_TRUE(asked);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !wasReading; }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeModalWidget() == nullptr; }));
  EXPECT_TRUE(inside(control()).bDataValid);
}

TEST_F(RecordDialogsTest, WaitWithTheirDialogUntilTheScanIsOver) {
  window->read();
  bool asked = false;
  platform.loop.onYield = [&] {
    if (control().get_DeviceConnected() == 0 || std::exchange(asked, true)) return;
    panel().CmdSave2DiskParameter.press();
    panel().CmdSave2DiskParameter.press();
  };
  int shown = 0;
  dialogs.look([&](QDialog&) {
    ++shown;
    EXPECT_EQ(control().get_DeviceConnected(), 0);
  });
  platform.loop.tick();
  ASSERT_TRUE(asked);
  EXPECT_EQ(shown, 0);
  EXPECT_TRUE(QTest::qWaitFor([&] { return shown == 1; }));
  EXPECT_TRUE(QTest::qWaitFor([&] { return QApplication::activeModalWidget() == nullptr; }));
}

}  // namespace
}  // namespace tessara::testing
