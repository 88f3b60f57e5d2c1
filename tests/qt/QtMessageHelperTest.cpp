#include <QAbstractButton>
#include <QMessageBox>
#include <QTimer>
#include <memory>

#include "QtTest.h"
#include "qt/QtMessageHelper.h"

namespace tessara::testing {
namespace {

/// What a message box showed before it was answered.
struct Seen {
  QString text;
  QString title;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  Qt::TextFormat format = Qt::AutoText;
  QWidget* parent = nullptr;
};

/// Waits for the next message box and answers it.
void whenShown(const std::function<void(QMessageBox&)>& answer) {
  auto* watch = new QTimer(qApp);
  watch->setInterval(5);
  QObject::connect(watch, &QTimer::timeout, watch, [watch, answer] {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      watch->deleteLater();
      watch->stop();
      answer(*box);
    }
  });
  watch->start();
}

Seen lookAt(const QMessageBox& box) {
  return {box.text(), box.windowTitle(), box.icon(), box.textFormat(), box.parentWidget()};
}

TEST(QtMessageHelper, ShowsTextTitleAndStyleAndReturns1ForOk) {
  const std::vector<std::pair<MessageStyle, QMessageBox::Icon>> styles{
      {MessageStyle::Error, QMessageBox::Critical}, {MessageStyle::Warning, QMessageBox::Warning}};
  for (const auto& [style, icon] : styles) {
    Seen seen;
    whenShown([&](QMessageBox& box) {
      seen = lookAt(box);
      box.button(QMessageBox::Ok)->click();
    });
    QtMessageHelper helper;
    EXPECT_EQ(helper.Show(u"Fehler laden Geräteliste!", style, u"MERIDEX_CONF"), 1);
    EXPECT_EQ(seen.text, "Fehler laden Geräteliste!");
    EXPECT_EQ(seen.title, "MERIDEX_CONF");
    EXPECT_EQ(seen.icon, icon);
    EXPECT_EQ(seen.format, Qt::PlainText);
    EXPECT_EQ(seen.parent, nullptr);
  }
}

TEST(QtMessageHelper, EscapeCountsAsOk) {
  whenShown([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ(QtMessageHelper().Show(u"Text", MessageStyle::Warning, u"Title"), 1);
}

TEST(QtMessageHelper, BelongsToItsParentAsLongAsThatLives) {
  QtMessageHelper helper;
  auto window = std::make_unique<QWidget>();
  helper.setParent(window.get());
  QWidget* parent = nullptr;
  const auto answer = [&](QMessageBox& box) {
    parent = box.parentWidget();
    box.accept();
  };
  whenShown(answer);
  helper.Show(u"Text", MessageStyle::Warning, u"Title");
  EXPECT_EQ(parent, window.get());

  window.reset();
  whenShown(answer);
  helper.Show(u"Text", MessageStyle::Warning, u"Title");
  EXPECT_EQ(parent, nullptr);
}

TEST(QtMessageHelper, SurvivesTheDeletionOfItsParent) {
  QtMessageHelper helper;
  auto window = std::make_unique<QWidget>();
  helper.setParent(window.get());
  whenShown([&](QMessageBox& /*box*/) { window.reset(); });
  EXPECT_EQ(helper.Show(u"Text", MessageStyle::Error, u"Title"), 1);
}

}  // namespace
}  // namespace tessara::testing
