#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "QtTest.h"
#include "base/RunTimeError.h"
#include "qt/DropDownView.h"

namespace tessara::testing {
namespace {

constexpr std::array buttonsInOrder{
    &Panel::CmdDeviceInfo,
    &Panel::CmdStoreParameter,
    &Panel::CmdOfflineConfigure,
    &Panel::CmdOpenDiskParameter,
    &Panel::CmdSave2DiskParameter,
    &Panel::CmdPrintConfiguration,
    &Panel::cmdSettings,
    &Panel::CmdHelp,
    &Panel::CmdAbout,
};

/// Counts how often a widget is painted.
class PaintCounter : public QObject {
 public:
  explicit PaintCounter(QWidget& watched) { watched.installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int count = 0;
};

using PanelViewTest = PanelOnScreen;

TEST_F(PanelViewTest, DrawsEveryWidgetExceptTimersAndImageLists) {
  for (const Widget* widget : panel.widgets()) {
    const bool isDrawn =
        widget->kind() != WidgetKind::Timer && widget->kind() != WidgetKind::ImageList;
    EXPECT_EQ(view.viewOf(*widget) != nullptr, isDrawn) << widget->name().size();
  }
}

TEST_F(PanelViewTest, HasTheSizeOfThePanel) {
  EXPECT_EQ(view.sizeHint(), QSize(803, 167));
  EXPECT_EQ(view.minimumSizeHint(), view.sizeHint());
}

TEST_F(PanelViewTest, ShowsAChangeInTheSameCall) {
  panel.LblSerialNumber.setCaption(u"18446744073709551615");
  EXPECT_EQ(shown<QLabel>(panel.LblSerialNumber).text(), "18446744073709551615");

  panel.CmdStoreParameter.setEnabled(false);
  EXPECT_FALSE(shown(panel.CmdStoreParameter).isEnabled());

  panel.ImageDevState.setVisible(true);
  EXPECT_TRUE(shown(panel.ImageDevState).isVisible());

  panel.txtDevAddr.setText(u"17");
  EXPECT_EQ(shown<QLineEdit>(panel.txtDevAddr).text(), "17");
}

TEST_F(PanelViewTest, PaintsARefreshedWidgetAtOnce) {
  QApplication::processEvents();
  PaintCounter counter(shown(panel.LblVendorID));
  panel.LblVendorID.setCaption(u"176");
  EXPECT_EQ(counter.count, 0);
  panel.LblVendorID.refresh();
  EXPECT_EQ(counter.count, 1);
}

TEST_F(PanelViewTest, HidesWidgetsThatTheModelHides) {
  EXPECT_FALSE(shown(panel.ComboBaudrate).isVisible());
  EXPECT_FALSE(shown(panel.ImageDevState).isVisible());
  showInputs(panel);
  EXPECT_TRUE(shown(panel.ComboBaudrate).isVisible());
  EXPECT_TRUE(shown(panel.LngLabel[2]).isVisible());
  panel.LblFwVersion.setVisible(false);
  EXPECT_FALSE(shown(panel.LblFwVersion).isVisible());
}

TEST_F(PanelViewTest, ShowsThePortsAndTheSelectedOne) {
  auto& list = shown<QComboBox>(panel.ComboComPort);
  EXPECT_EQ(list.count(), 4);
  EXPECT_EQ(list.currentText(), "USB Adapter OKT (COM3)");
  panel.ComboComPort.select(2);
  EXPECT_EQ(list.currentText(), "TWN4 NFC-Adapter (COM5)");
  panel.ComboComPort.clearItems();
  EXPECT_EQ(list.count(), 0);
  EXPECT_EQ(list.currentText(), "");
}

TEST_F(PanelViewTest, ShowsARateThatIsNotInTheList) {
  auto& list = shown<QComboBox>(panel.ComboBaudrate);
  EXPECT_EQ(list.currentText(), "19200");
  panel.ComboBaudrate.setText(u"31250");
  EXPECT_EQ(list.currentText(), "31250");
  panel.ComboBaudrate.setText(u"115200");
  EXPECT_EQ(list.currentText(), "115200");
  EXPECT_EQ(list.currentIndex(), 10);
}

TEST_F(PanelViewTest, AChangeByTheModelRunsNoHandler) {
  countClicks(panel.ComboBaudrate);
  panel.ComboBaudrate.setText(u"9600");
  panel.ComboBaudrate.setEnabled(false);
  EXPECT_EQ(clicks, 0);
}

TEST_F(PanelViewTest, PressesAClickedButton) {
  for (const auto button : buttonsInOrder) {
    clicks = 0;
    countClicks(panel.*button);
    QTest::mouseClick(&shown(panel.*button), Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
  }
}

TEST_F(PanelViewTest, PressesTheFocusedButtonWithSpaceAndEnter) {
  countClicks(panel.CmdHelp);
  shown(panel.CmdHelp).setFocus();
  int pressed = 0;
  for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    QTest::keyClick(&shown(panel.CmdHelp), key);
    EXPECT_EQ(clicks, ++pressed);
  }
}

TEST_F(PanelViewTest, DoesNotPressADisabledButton) {
  countClicks(panel.CmdDeviceInfo);
  panel.CmdDeviceInfo.setEnabled(false);
  QTest::mouseClick(&shown(panel.CmdDeviceInfo), Qt::LeftButton);
  QTest::keyClick(&view, Qt::Key_F5);
  EXPECT_EQ(clicks, 0);
  EXPECT_TRUE(errors.empty());
}

TEST_F(PanelViewTest, HasShortcutsForTheFrequentButtons) {
  const std::vector<std::tuple<Widget Panel::*, Qt::Key, Qt::KeyboardModifiers>> table{
      {&Panel::CmdDeviceInfo, Qt::Key_F5, Qt::NoModifier},
      {&Panel::CmdStoreParameter, Qt::Key_F6, Qt::NoModifier},
      {&Panel::CmdHelp, Qt::Key_F1, Qt::NoModifier},
      {&Panel::CmdOpenDiskParameter, Qt::Key_O, Qt::ControlModifier},
      {&Panel::CmdSave2DiskParameter, Qt::Key_S, Qt::ControlModifier},
      {&Panel::CmdPrintConfiguration, Qt::Key_P, Qt::ControlModifier},
  };
  shown(panel.ComboComPort).setFocus();
  for (const auto& [button, key, modifiers] : table) {
    clicks = 0;
    countClicks(panel.*button);
    QTest::keyClick(&shown(panel.ComboComPort), key, modifiers);
    EXPECT_EQ(clicks, 1) << key;
  }
}

TEST_F(PanelViewTest, TabReachesButtonsInputsAndStatusTextsInOrder) {
  showInputs(panel);
  std::vector<const Widget*> wanted;
  wanted.reserve(14);
  for (const auto button : buttonsInOrder) {
    wanted.push_back(&(panel.*button));
  }
  for (const auto input : {&Panel::ComboComPort, &Panel::ComboBaudrate, &Panel::txtDevAddr,
                           &Panel::LblModulState, &Panel::LblChnState}) {
    wanted.push_back(&(panel.*input));
  }
  shown(*wanted.front()).setFocus();
  for (const Widget* next : wanted) {
    EXPECT_EQ(QApplication::focusWidget(), &shown(*next)) << toUtf8(next->name());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(QApplication::focusWidget(), &shown(*wanted.front()));
}

TEST_F(PanelViewTest, StartsWithTheFocusOnTheReadButton) {
  EXPECT_EQ(QApplication::focusWidget(), &shown(panel.CmdDeviceInfo));
}

TEST_F(PanelViewTest, AReenabledButtonRegainsTheFocus) {
  countClicks(panel.CmdOpenDiskParameter);
  shown(panel.CmdDeviceInfo).setFocus();
  panel.CmdDeviceInfo.setEnabled(false);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
  EXPECT_EQ(clicks, 0);
  panel.CmdDeviceInfo.setEnabled(true);
  EXPECT_EQ(QApplication::focusWidget(), &shown(panel.CmdDeviceInfo));
}

TEST_F(PanelViewTest, KeepsTheFocusThatTheUserMoved) {
  shown(panel.CmdDeviceInfo).setFocus();
  panel.CmdDeviceInfo.setEnabled(false);
  shown(panel.ComboComPort).setFocus();
  panel.CmdDeviceInfo.setEnabled(true);
  EXPECT_EQ(QApplication::focusWidget(), &shown(panel.ComboComPort));
}

TEST_F(PanelViewTest, SelectingALineRunsTheHandlerEvenForTheSelectedLine) {
  countClicks(panel.ComboComPort);
  auto& list = shown<QComboBox>(panel.ComboComPort);
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(panel.ComboComPort.state().index, 1);
  EXPECT_EQ(toUtf8(panel.ComboComPort.text()), "USB Hart Adapter Viator (COM12)");
  list.showPopup();
  QTest::keyClick(list.view(), Qt::Key_Return);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(panel.ComboComPort.state().index, 1);
}

TEST_F(PanelViewTest, TypingReachesTheModelAndRunsNoHandler) {
  showInputs(panel);
  countClicks(panel.ComboBaudrate);
  auto& rate = *shown<QComboBox>(panel.ComboBaudrate).lineEdit();
  rate.selectAll();
  QTest::keyClicks(&rate, "31250");
  EXPECT_EQ(toUtf8(panel.ComboBaudrate.text()), "31250");
  EXPECT_EQ(panel.ComboBaudrate.state().index, -1);
  EXPECT_EQ(rate.text(), "31250");

  auto& address = shown<QLineEdit>(panel.txtDevAddr);
  address.selectAll();
  QTest::keyClicks(&address, "17");
  EXPECT_EQ(toUtf8(panel.txtDevAddr.text()), "17");
  EXPECT_EQ(clicks, 0);
}

TEST_F(PanelViewTest, InputsAcceptOnlyDigits) {
  showInputs(panel);
  auto& address = shown<QLineEdit>(panel.txtDevAddr);
  address.selectAll();
  QTest::keyClicks(&address, "a1-b2.3456");
  EXPECT_EQ(toUtf8(panel.txtDevAddr.text()), "123");
  auto& rate = *shown<QComboBox>(panel.ComboBaudrate).lineEdit();
  rate.selectAll();
  QTest::keyClicks(&rate, "96k00");
  EXPECT_EQ(toUtf8(panel.ComboBaudrate.text()), "9600");
}

TEST_F(PanelViewTest, EnterSelectsATypedRate) {
  showInputs(panel);
  countClicks(panel.ComboBaudrate);
  auto& rates = shown<QComboBox>(panel.ComboBaudrate);
  rates.lineEdit()->selectAll();
  QTest::keyClicks(&rates, "9600");
  EXPECT_EQ(clicks, 0);
  QTest::keyClick(&rates, Qt::Key_Return);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(panel.ComboBaudrate.state().index, 2);
  rates.lineEdit()->selectAll();
  QTest::keyClicks(&rates, "12345");
  QTest::keyClick(&rates, Qt::Key_Return);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(rates.count(), 11);
}

TEST_F(PanelViewTest, KeepsTheCursorWhenTypingInTheMiddle) {
  showInputs(panel);
  auto& rates = shown<QComboBox>(panel.ComboBaudrate);
  rates.lineEdit()->setCursorPosition(1);
  QTest::keyClicks(&rates, "23");
  EXPECT_EQ(rates.lineEdit()->text(), "1239200");
  EXPECT_EQ(rates.lineEdit()->cursorPosition(), 3);
}

TEST_F(PanelViewTest, TheWheelSelectsNothingInAListWithoutFocus) {
  countClicks(panel.ComboComPort);
  shown(panel.CmdHelp).setFocus();
  auto& list = shown(panel.ComboComPort);
  const QPointF middle = QRectF(list.rect()).center();
  QWheelEvent turn(middle, list.mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                   Qt::NoScrollPhase, false);
  QApplication::sendEvent(&list, &turn);
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(panel.ComboComPort.state().index, 0);
}

TEST_F(PanelViewTest, ShowsAnErrorOfTheModelToTheUser) {
  panel.CmdDeviceInfo.setClickHandler(
      [] { throw RunTimeError(ErrorNumber::TypeMismatch, "The rate \"fast\" is not a number"); });
  QTest::mouseClick(&shown(panel.CmdDeviceInfo), Qt::LeftButton);
  EXPECT_EQ(errors, std::vector<std::string>{"The rate \"fast\" is not a number"});
}

TEST_F(PanelViewTest, ShowsTheStateOfTheModelAfterAFailedSelection) {
  panel.ComboComPort.setClickHandler([this] {
    panel.ComboComPort.setClickHandler(nullptr);
    panel.ComboComPort.select(3);
    throw RunTimeError(ErrorNumber::Subscript, "no port there");
  });
  auto& list = shown<QComboBox>(panel.ComboComPort);
  list.setFocus();
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_EQ(errors.size(), 1U);
  EXPECT_EQ(list.currentIndex(), 3);
}

TEST(PanelViewLife, MayBeDestroyedByAnActionItStarted) {
  Panel panel;
  auto view = std::make_unique<PanelView>(panel);
  bool failed = false;
  view->showError = [&](const QString& /*text*/) { failed = true; };
  panel.CmdAbout.setClickHandler([&] {
    view.reset();
    throw RunTimeError(ErrorNumber::InvalidCall, "too late");
  });
  dynamic_cast<QAbstractButton*>(view->viewOf(panel.CmdAbout))->click();
  EXPECT_EQ(view, nullptr);
  EXPECT_FALSE(failed);
}

TEST(PanelViewLife, ObservesThePanelAsLongAsItLives) {
  Panel panel;
  {
    const PanelView view(panel);
    EXPECT_NE(panel.observer(), nullptr);
  }
  EXPECT_EQ(panel.observer(), nullptr);
  panel.LblVendorID.setCaption(u"1");
}

TEST_F(PanelViewTest, ShowsTheTextsOfTheToolTips) {
  EXPECT_EQ(shown(panel.CmdDeviceInfo).toolTip(), "<p>Parameter aus Modul lesen (F5)</p>");
  EXPECT_EQ(shown(panel.cmdSettings).toolTip(), "<p>Sprache...</p>");
  panel.LblModulState.setToolTipTitle(u"Modul Status");
  panel.LblModulState.setToolTipText(u"4 -> Simulation <RAM>");
  EXPECT_EQ(shown(panel.LblModulState).toolTip(),
            "<p><b>Modul Status</b><br>4 -&gt; Simulation &lt;RAM&gt;</p>");
}

TEST_F(PanelViewTest, TheClosedListShowsThePortEvenBesideRateAndAddress) {
  showInputs(panel);
  const auto& list = shown<DropDownView>(panel.ComboComPort);
  EXPECT_EQ(list.shownText(), "USB Adapter OKT (COM3)");
  panel.ComboComPort.select(1);
  EXPECT_TRUE(list.shownText().startsWith("USB Ha"));
  EXPECT_TRUE(list.shownText().endsWith("(COM12)"));
}

TEST_F(PanelViewTest, TheToolTipOfTheClosedListShowsTheWholePort) {
  panel.ComboComPort.select(1);
  EXPECT_EQ(shown(panel.ComboComPort).toolTip(), "<p>USB Hart Adapter Viator (COM12)</p>");
}

TEST_F(PanelViewTest, EveryWidgetHasANameForScreenReaders) {
  fillHealthy(panel);
  EXPECT_EQ(spoken(panel.CmdDeviceInfo), "Parameter aus Modul lesen");
  EXPECT_EQ(spoken(panel.CmdHelp), "Hilfe");
  EXPECT_EQ(spoken(panel.CmdHelp, QAccessible::Description), "Hilfe...");
  EXPECT_EQ(shown(panel.ComboComPort).accessibleName(), "COM-Port");
  EXPECT_EQ(shown(panel.ComboBaudrate).accessibleName(), "Baudrate");
  EXPECT_EQ(spoken(panel.txtDevAddr), "Adresse");
  EXPECT_EQ(spoken(panel.txtDevAddr, QAccessible::Value), "192");
  EXPECT_EQ(spoken(panel.LabelDeviceName), "Gerätetyp: TSR-4120 Pt100 / 2-wire");
  EXPECT_EQ(spoken(panel.LblDeviceID), "Device ID : 4");
  EXPECT_EQ(spoken(panel.LblModulState), "Modul Status: 0 -> Kein Fehler");
  EXPECT_EQ(spoken(panel.LblModulState, QAccessible::Description), "0 -> Kein Fehler");
  for (const Widget* widget : panel.widgets()) {
    if (view.viewOf(*widget) != nullptr && widget->kind() != WidgetKind::Frame &&
        widget->kind() != WidgetKind::Image && widget->kind() != WidgetKind::PictureBox) {
      EXPECT_FALSE(spoken(*widget).isEmpty()) << toUtf8(widget->name());
    }
  }
}

TEST_F(PanelViewTest, CaptionsAreTheLabelsOfTheirFields) {
  const auto relations = QAccessible::queryAccessibleInterface(&shown(panel.ComboComPort))
                             ->relations(QAccessible::Label);
  ASSERT_EQ(relations.size(), 1);
  EXPECT_EQ(relations.front().first->object(), &shown(panel.LngLabel[1]));
}

TEST_F(PanelViewTest, TheStatePictureHasAnAccessibleName) {
  fillHealthy(panel);
  EXPECT_EQ(spoken(panel.ImageDevState), "Modul Status: 0 -> Kein Fehler");
}

TEST_F(PanelViewTest, ButtonsAndTextsHaveTheirAccessibleRoles) {
  const auto role = [this](const Widget& widget) {
    return QAccessible::queryAccessibleInterface(&shown(widget))->role();
  };
  EXPECT_EQ(role(panel.CmdDeviceInfo), QAccessible::PushButton);
  EXPECT_EQ(role(panel.ComboComPort), QAccessible::ComboBox);
  EXPECT_EQ(role(panel.txtDevAddr), QAccessible::EditableText);
  EXPECT_EQ(role(panel.LblModulState), QAccessible::StaticText);
}

}  // namespace
}  // namespace tessara::testing
