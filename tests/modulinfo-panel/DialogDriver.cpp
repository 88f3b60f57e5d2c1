#include "DialogDriver.h"

#include <QLineEdit>
#include <QTest>
#include <chrono>

namespace tessara::testing {

DialogDriver::~DialogDriver() {
  EXPECT_TRUE(answers_.empty()) << answers_.size() << " dialogs have not come";
}

void DialogDriver::next(std::function<void(QDialog&)> answer) {
  answers_.push_back(std::move(answer));
  timer_.callOnTimeout([this] { serve(); });
  timer_.start(std::chrono::milliseconds(5));
}

void DialogDriver::serve() {
  auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
  if (dialog == nullptr || !dialog->isVisible() || answers_.empty() || dialog == served_) {
    return;
  }
  // Answering runs the event loop of the dialog, and with it this timer.
  served_ = dialog;
  const auto answer = std::move(answers_.front());
  answers_.erase(answers_.begin());
  answer(*dialog);
  served_ = nullptr;
}

void DialogDriver::chooseFile(const QString& path) {
  next([this, path](QDialog& dialog) {
    auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(edit, nullptr) << "no file dialog: " << dialog.metaObject()->className();
    suggested_ = edit->text();
    // Pasted: typing would open a list of completions, which would take the Enter.
    edit->setText(path);
    QTest::keyClick(edit, Qt::Key_Return);
  });
}

void DialogDriver::cancel() {
  look([](QDialog&) {});
}

void DialogDriver::look(std::function<void(QDialog&)> atDialog) {
  next([atDialog = std::move(atDialog)](QDialog& dialog) {
    atDialog(dialog);
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
}

void DialogDriver::acceptBox() {
  next([this](QDialog& dialog) {
    auto* box = qobject_cast<QMessageBox*>(&dialog);
    ASSERT_NE(box, nullptr) << "no message box: " << dialog.metaObject()->className();
    boxes_ += box->text();
    QTest::keyClick(box, Qt::Key_Return);
  });
}

}  // namespace tessara::testing
