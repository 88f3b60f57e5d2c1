#include <QAbstractButton>
#include <QAction>
#include <QClipboard>

#include "DialogOnScreen.h"
#include "dialogs/Maker.h"
#include "dialogs/frmAbout.h"
#include "qt/LabelView.h"

namespace tessara::testing {
namespace {

class AboutBoxView : public DialogOnScreen {
 protected:
  void open(const std::function<void(FormView&)>& person) { press(panel.CmdAbout, person); }
  static frmAbout& form() { return *moduleWide().frmAbout.lock(); }

  template <class Kind = QAbstractButton>
  static Kind& part(FormView& view, std::u16string_view name) {
    return shown<Kind>(view, form(), name);
  }
  static int leftOf(FormView& view, std::u16string_view name) {
    return part<QWidget>(view, name).x();
  }
};

TEST_F(AboutBoxView, HasATitleAndShowsTheVersion) {
  inside(*control).VersionString = u"3.2.1";
  open([](FormView& view) {
    EXPECT_EQ(view.windowTitle(), "Information");
    EXPECT_EQ(part<LabelView>(view, u"LabelRevision").text(), "3.2.1");
  });
}

TEST_F(AboutBoxView, ReturnEscapeClosingAndAClickAllMeanOk) {
  const std::vector<std::function<void(FormView&)>> ways{
      [](FormView&) { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return); },
      [](FormView&) { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape); },
      [](FormView& view) { view.close(); },
      [](FormView& view) { QTest::mouseClick(&part(view, u"cmdOK"), Qt::LeftButton); }};
  for (const auto& way : ways) {
    open([&](FormView& view) {
      way(view);
      EXPECT_FALSE(view.isVisible());
      EXPECT_EQ(form().Tag(), u"1");
    });
  }
}

TEST_F(AboutBoxView, StartsWithTheFocusOnOk) {
  open([](FormView& view) { EXPECT_TRUE(part(view, u"cmdOK").hasFocus()); });
}

TEST_F(AboutBoxView, AClickOnALinkOpensIt) {
  open([](FormView& view) {
    QTest::mouseClick(&part(view, u"HyperLinkEmail"), Qt::LeftButton, {}, QPoint(4, 8));
  });
  EXPECT_EQ(log.count("ShellExecuteA 0 Open mailto:" + toUtf8(maker.mail)), 1U);
}

TEST_F(AboutBoxView, AClickBesideAnAddressOpensNothing) {
  open([](FormView& view) {
    auto& link = part(view, u"HyperLinkWeb");
    QTest::mouseClick(&link, Qt::LeftButton, {}, QPoint(link.width() - 2, 8));
  });
  EXPECT_EQ(log.count("ShellExecuteA"), 0U);
}

TEST_F(AboutBoxView, TheKeyboardOpensALink) {
  open([](FormView& view) {
    part(view, u"HyperLinkWeb").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(view.isVisible());
  });
  EXPECT_EQ(log.count("ShellExecuteA 0 Open https://" + toUtf8(maker.web)), 1U);
}

TEST_F(AboutBoxView, ContactDataCanBeCopied) {
  open([](FormView& view) {
    const std::vector<std::pair<const char16_t*, std::u16string_view>> parts{
        {u"HyperLinkEmail", maker.mail}, {u"LblPhoneNr", maker.phone}};
    for (const auto& [name, text] : parts) {
      part<QWidget>(view, name).actions().front()->trigger();
      EXPECT_EQ(QGuiApplication::clipboard()->text(), toQt(text));
    }
  });
}

TEST_F(AboutBoxView, IgnoresALinkThatNoProgramOpens) {
  platform.programs.result = Shell::noAssociation;
  open([](FormView& view) {
    QTest::mouseClick(&part(view, u"HyperLinkWeb"), Qt::LeftButton, {}, QPoint(4, 8));
    EXPECT_TRUE(view.isVisible());
  });
  EXPECT_TRUE(errors.empty());
}

TEST_F(AboutBoxView, PlacesTheSecondColumnWhereTheModelDoes) {
  const double pixels = window.logicalDpiX() / 1440.0;
  open([&](FormView& view) { EXPECT_EQ(leftOf(view, u"LblPhoneNr"), qRound(4600 * pixels)); });
  moduleWide().TextMainFrame[22] = std::u16string(14, u'i');
  open([&](FormView& view) {
    for (const auto* name : {u"LblPhoneNr", u"LblFaxNr", u"HyperLinkEmail", u"HyperLinkWeb"}) {
      EXPECT_EQ(leftOf(view, name), qRound(5000 * pixels));
    }
  });
}

TEST_F(AboutBoxView, AWideCaptionMovesTheSecondColumn) {
  moduleWide().TextMainFrame[22] = std::u16string(14, u'W');
  open([](FormView& view) {
    EXPECT_FALSE(part<LabelView>(view, u"LblPhone").isCut());
    EXPECT_LT(part<QWidget>(view, u"LblPhone").geometry().right(), leftOf(view, u"LblPhoneNr"));
  });
}

TEST_F(AboutBoxView, ALongDescriptionGetsAsManyLinesAsItNeeds) {
  QSize usual;
  open([&](FormView& view) { usual = view.size(); });
  std::u16string text;
  for (int word = 0; word < 120; ++word) text += u"interface ";
  moduleWide().TextMainFrame[16] = text;
  open([&](FormView& view) {
    EXPECT_GT(view.height(), usual.height());
    EXPECT_EQ(view.width(), usual.width());
    EXPECT_FALSE(part<LabelView>(view, u"LblInfo").isCut());
    EXPECT_LE(part<QWidget>(view, u"LblInfo").geometry().bottom(),
              part<QWidget>(view, u"LblProductContactInfo").y());
    EXPECT_LE(part<QWidget>(view, u"cmdOK").geometry().bottom(), view.height());
  });
}

}  // namespace
}  // namespace tessara::testing
