#include <QAbstractButton>
#include <QMessageBox>
#include <algorithm>

#include "DialogOnScreen.h"
#include "dialogs/frmLanguage.h"
#include "qt/QtMessageHelper.h"

namespace tessara::testing {
namespace {

class LanguageDialogView : public DialogOnScreen {
 protected:
  void open(const std::function<void(FormView&)>& person) { press(panel.cmdSettings, person); }
  static frmLanguage& form() { return *moduleWide().frmLanguage.lock(); }

  template <class Kind = QAbstractButton>
  static Kind& button(FormView& view, std::u16string_view name) {
    return shown<Kind>(view, form(), name);
  }
  static QString focused() { return QApplication::focusWidget()->property("text").toString(); }
};

TEST_F(LanguageDialogView, IsModalInFrontOfTheWindowWithATitleBarOfTheSystem) {
  open([this](FormView& view) {
    EXPECT_TRUE(view.isModal());
    EXPECT_EQ(view.windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(view.parentWidget(), &window);
    EXPECT_EQ(view.windowTitle(), "Sprache");
    EXPECT_FALSE(view.windowFlags().testFlag(Qt::FramelessWindowHint));
  });
}

TEST_F(LanguageDialogView, AClickOnAnOptionAndOnOkStoresTheLanguage) {
  open([](FormView& view) {
    QTest::mouseClick(&button(view, u"OptionPL"), Qt::LeftButton, {}, QPoint(5, 8));
    EXPECT_TRUE(form().OptionPL.state().value);
    EXPECT_FALSE(form().OptionDE.state().value);
    QTest::mouseClick(&button(view, u"cmdOK"), Qt::LeftButton);
  });
  EXPECT_EQ(inside(*control).Language, 10);
  EXPECT_EQ(log.count("SetValue"), 1U);
  EXPECT_EQ(log.count("Show 48"), 1U);
}

TEST_F(LanguageDialogView, AClickBesideTheTextOfAnOptionDoesNothing) {
  open([](FormView& view) {
    auto& option = button(view, u"OptionPL");
    QTest::mouseClick(&option, Qt::LeftButton, {}, QPoint(option.width() - 2, 8));
    EXPECT_FALSE(form().OptionPL.state().value);
  });
}

TEST_F(LanguageDialogView, ReturnMeansOkAndTheArrowKeysMoveBetweenOptions) {
  open([](FormView& view) {
    EXPECT_EQ(focused(), "Deutsch");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_TRUE(form().OptionGB.state().value);
    EXPECT_EQ(focused(), "English");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Down);
    EXPECT_TRUE(form().OptionFR.state().value);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(view.isVisible());
  });
  EXPECT_EQ(inside(*control).Language, 2);
}

TEST_F(LanguageDialogView, TheArrowKeysReachEveryLanguage) {
  open([](FormView& /*view*/) {
    std::vector<QWidget*> reached{QApplication::focusWidget()};
    for (std::size_t at = 0; at < reached.size(); ++at) {
      for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Left, Qt::Key_Right}) {
        reached[at]->setFocus();
        QTest::keyClick(reached[at], key);
        QWidget* next = QApplication::focusWidget();
        if (std::find(reached.begin(), reached.end(), next) == reached.end()) {
          reached.push_back(next);
        }
      }
    }
    EXPECT_EQ(reached.size(), 11U);
  });
}

TEST_F(LanguageDialogView, TabMovesFromTheSelectedOptionToTheButtonsAndBack) {
  open([](FormView& /*view*/) {
    QStringList way;
    for (int press = 0; press < 4; ++press) {
      way += focused();
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(way, QStringList({"Deutsch", "OK", "Abbrechen", "Deutsch"}));
  });
}

TEST_F(LanguageDialogView, EscapeCancels) {
  open([](FormView& view) {
    QTest::mouseClick(&button(view, u"OptionFR"), Qt::LeftButton, {}, QPoint(5, 8));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(view.isVisible());
    EXPECT_EQ(form().Tag(), u"2");
  });
  EXPECT_EQ(inside(*control).Language, 1);
  EXPECT_EQ(log.count("SetValue"), 0U);
}

TEST_F(LanguageDialogView, ClosingTheWindowCancels) {
  open([](FormView& view) {
    view.close();
    EXPECT_FALSE(view.isVisible());
    EXPECT_EQ(form().Tag(), u"2");
  });
  EXPECT_EQ(log.count("SetValue"), 0U);
}

TEST_F(LanguageDialogView, TheCancelButtonCancelsByMouseAndByKeyboard) {
  open([](FormView& view) {
    QTest::mouseClick(&button(view, u"cmdCancel"), Qt::LeftButton);
    EXPECT_EQ(form().Tag(), u"2");
  });
  open([](FormView& view) {
    button(view, u"cmdCancel").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(form().Tag(), u"2");
  });
}

TEST_F(LanguageDialogView, TheBackgroundOfAButtonChangesUnderThePointer) {
  open([](FormView& view) {
    auto& ok = button(view, u"cmdOK");
    const QImage idle = ok.grab().toImage();
    QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
    QApplication::sendEvent(&ok, &enter);
    EXPECT_EQ(form().cmdOK.state().gradientstartcolor, 0xE1DFDBU);
    EXPECT_NE(ok.grab().toImage(), idle);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&ok, &leave);
    EXPECT_EQ(form().cmdOK.state().gradientstartcolor, 0xFDFDFDU);
    EXPECT_EQ(ok.grab().toImage(), idle);
  });
}

TEST_F(LanguageDialogView, ThePointerMayLeaveAWindowThatIsClosing) {
  open([](FormView& view) {
    auto& ok = button(view, u"cmdOK");
    QTest::mouseClick(&ok, Qt::LeftButton);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&ok, &leave);
  });
  EXPECT_EQ(log.count("Show 48"), 1U);
}

TEST_F(LanguageDialogView, ShowsAChangeOfTheModelAtOnce) {
  open([](FormView& view) {
    form().OptionIT.setValue(true);
    EXPECT_TRUE(button(view, u"OptionIT").isChecked());
    EXPECT_FALSE(button(view, u"OptionDE").isChecked());
    form().OptionIT.setValue(false);
    EXPECT_FALSE(button(view, u"OptionIT").isChecked());
    form().OptionRU.setCaption(u"R&D");
    EXPECT_EQ(button(view, u"OptionRU").text(), "R&&D");
    form().UniFormCaptionB1.setCaption(u"Language");
    EXPECT_EQ(view.windowTitle(), "Language");
  });
}

TEST_F(LanguageDialogView, ClosesWhenTheControlIsDestroyed) {
  QPointer<FormView> closed;
  open([&](FormView& view) {
    closed = &view;
    control->UserControl_Terminate();
    EXPECT_FALSE(view.isVisible());
  });
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(closed, nullptr);
  EXPECT_EQ(inside(*control).Language, 1);
}

TEST_F(LanguageDialogView, ClosesWithItsOwner) {
  auto owner = std::make_unique<QWidget>();
  QtForms its(*owner);
  control->setFormObserver(&its);
  open([&](FormView& /*view*/) { owner.reset(); });
  EXPECT_TRUE(moduleWide().frmLanguage.expired());
}

TEST_F(LanguageDialogView, ClosesWithTheViewOfThePanel) {
  auto its = std::make_unique<QtForms>(window);
  control->setFormObserver(its.get());
  open([&](FormView& /*view*/) { its.reset(); });
  EXPECT_TRUE(moduleWide().frmLanguage.expired());
}

TEST_F(LanguageDialogView, ClosesWhenTheProgramQuits) {
  const std::vector<std::function<void()>> ways{[] { QCoreApplication::quit(); },
                                                [] { QCoreApplication::exit(0); }};
  for (const auto& way : ways) {
    bool ended = false;
    QTimer::singleShot(0, &window, [&] {
      press(
          panel.cmdSettings, [&](FormView& /*view*/) { way(); }, Afterwards::Leave);
      ended = true;
    });
    QCoreApplication::exec();
    EXPECT_TRUE(ended);
    EXPECT_TRUE(moduleWide().frmLanguage.expired());
    EXPECT_EQ(log.count("SetValue"), 0U);
  }
}

TEST_F(LanguageDialogView, AMessageBoxOpensInFrontOfTheOpenDialog) {
  QWidget* parent = nullptr;
  open([&](FormView& view) {
    QtMessageHelper boxes;
    boxes.setParent(&window);
    QTimer answer;
    answer.callOnTimeout([&] {
      if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        parent = box->parentWidget();
        box->accept();
      }
    });
    answer.start(2);
    boxes.Show(u"Text", MessageStyle::Warning, u"Title");
    EXPECT_EQ(parent, &view);
  });
}

TEST_F(LanguageDialogView, UsesTheIconOfItsOwnerIfItHasNone) {
  QPixmap blue(16, 16);
  blue.fill(Qt::blue);
  window.setWindowIcon(QIcon(blue));
  open([](FormView& view) {
    EXPECT_EQ(view.windowIcon().pixmap(16).toImage().pixelColor(8, 8), QColor(Qt::blue));
  });
}

}  // namespace
}  // namespace tessara::testing
