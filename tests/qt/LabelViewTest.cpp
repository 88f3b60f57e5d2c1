#include <QClipboard>
#include <QToolTip>

#include "QtTest.h"
#include "qt/LabelView.h"

namespace tessara::testing {
namespace {

class LabelViewTest : public PanelOnScreen {
 protected:
  LabelView& label(const Widget& widget) { return shown<LabelView>(widget); }

  /// Every caption that does not fit, by name.
  std::vector<std::string> cutCaptions() {
    std::vector<std::string> cut;
    for (const Widget* widget : panel.widgets()) {
      const auto* drawn = dynamic_cast<LabelView*>(view.viewOf(*widget));
      if (drawn != nullptr && drawn->focusPolicy() == Qt::NoFocus && drawn->isCut()) {
        cut.push_back(toUtf8(widget->name()) + " " + drawn->shownText().toStdString());
      }
    }
    return cut;
  }
};

TEST_F(LabelViewTest, CaptionsFitInEveryLanguageAtEverySize) {
  for (const PanelTexts* texts : {&german, &russian, &chinese}) {
    bringUp(panel, *texts);
    showInputs(panel);
    for (const double size : {1.0, 1.25, 1.5, 2.0, 3.0}) {
      view.resize(view.sizeHint() * size);
      EXPECT_EQ(cutCaptions(), std::vector<std::string>{}) << size;
    }
  }
}

TEST_F(LabelViewTest, LongValuesFit) {
  fillLongest(panel);
  for (const Widget* value :
       {&panel.LabelDeviceName, &panel.LblFwVersion, &panel.LblSerialNumber, &panel.LblVendorID,
        &panel.LblGroupID, &panel.LblFamilyID, &panel.LblDeviceID}) {
    EXPECT_FALSE(label(*value).isCut()) << toUtf8(value->name());
  }
}

TEST_F(LabelViewTest, ElidesTextThatDoesNotFit) {
  fillLongest(panel);
  const LabelView& state = label(panel.LblModulState);
  EXPECT_TRUE(state.isCut());
  EXPECT_TRUE(state.shownText().startsWith("USB-Power; 1054 -> "));
  EXPECT_TRUE(state.shownText().endsWith(QChar(0x2026)));
  EXPECT_EQ(state.text(), toQt(panel.LblModulState.caption()));
}

TEST_F(LabelViewTest, ScalesALongCaptionDownBeforeItElidesIt) {
  panel.LngLabel[6].setCaption(u"Numéro de série :");
  EXPECT_FALSE(label(panel.LngLabel[6]).isCut());
  panel.LngLabel[6].setCaption(u"Numéro de série complet du module de mesure:");
  EXPECT_TRUE(label(panel.LngLabel[6]).isCut());
}

TEST_F(LabelViewTest, TheDeviceTypeCaptionBreaksIntoTwoLines) {
  panel.LngLabel[3].setCaption(u"Bezeichnung des Gerätetyps:");
  panel.LngLabel[3].setRow(240, 255);
  EXPECT_TRUE(label(panel.LngLabel[3]).isCut());
  panel.LngLabel[3].setRow(140, 400);
  EXPECT_FALSE(label(panel.LngLabel[3]).isCut());
}

TEST_F(LabelViewTest, TheToolTipShowsAllOfAnElidedText) {
  const std::u16string whole =
      u"Universal-Messumformer für Thermoelemente, Widerstände und Normsignale, 3-fach getrennt";
  panel.LabelDeviceDescription.setCaption(whole);
  LabelView& description = label(panel.LabelDeviceDescription);
  QHelpEvent ask(QEvent::ToolTip, QPoint(5, 5), description.mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&description, &ask);
  EXPECT_EQ(QToolTip::text(), "<p>" + toQt(whole) + "</p>");
}

TEST_F(LabelViewTest, TheKeyboardReachesStatusTextsAndShowsTheirToolTips) {
  fillLongest(panel);
  QToolTip::hideText();
  shown(panel.CmdAbout).setFocus();
  label(panel.LblModulState).setFocus(Qt::TabFocusReason);
  EXPECT_TRUE(QToolTip::text().contains("<b>Modul Status</b>"));
  EXPECT_TRUE(QToolTip::text().contains("Fehler Konfiguration Mess-System"));
}

TEST_F(LabelViewTest, ValuesCanBeCopied) {
  panel.LblSerialNumber.setCaption(u"18446744073709551615");
  LabelView& serial = label(panel.LblSerialNumber);
  QTest::mouseClick(&serial, Qt::LeftButton);
  QTest::keyClick(&serial, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "18446744073709551615");
}

TEST_F(LabelViewTest, HidesThePaddingOfAModule) {
  panel.LabelDeviceName.setCaption(u"VELLUM LM 201" + std::u16string(19, u'\0'));
  EXPECT_EQ(label(panel.LabelDeviceName).shownText(), "VELLUM LM 201");
  EXPECT_EQ(spoken(panel.LabelDeviceName), "Gerätetyp: VELLUM LM 201");
  panel.LabelDeviceName.setCaption(u"TM 151  B        ");
  EXPECT_EQ(label(panel.LabelDeviceName).shownText(), "TM 151  B");
}

TEST_F(LabelViewTest, ShowsMarkupAsPlainText) {
  panel.LabelDeviceName.setCaption(u"<b>1 & 2</b>");
  EXPECT_EQ(label(panel.LabelDeviceName).shownText(), "<b>1 & 2</b>");
}

}  // namespace
}  // namespace tessara::testing
