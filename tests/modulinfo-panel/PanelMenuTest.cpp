#include <QAbstractButton>
#include <QMenu>
#include <QMenuBar>

#include "HostBench.h"
#include "qt/QtText.h"

namespace tessara::testing {
namespace {

class PanelMenuTest : public HostBench {
 protected:
  QStringList entries(int menu) {
    QStringList texts;
    for (QAction* action : window->menuBar()->actions()[menu]->menu()->actions()) {
      if (!action->isSeparator()) texts += action->text();
    }
    return texts;
  }
  /// The entry that begins with that text, in the state it has when its menu is open.
  QAction* entry(const QString& text) {
    for (QAction* menu : window->menuBar()->actions()) {
      for (QAction* action : menu->menu()->actions()) {
        if (action->text().remove('&').startsWith(text)) {
          Q_EMIT menu->menu()->aboutToShow();
          return action;
        }
      }
    }
    return nullptr;
  }
};

TEST_F(PanelMenuTest, HasEveryButtonOfThePanel) {
  QStringList all;
  for (int menu = 0; menu < 4; ++menu) all += entries(menu);
  for (const Widget* button :
       {&panel().CmdDeviceInfo, &panel().CmdStoreParameter, &panel().CmdOfflineConfigure,
        &panel().CmdHelp, &panel().cmdSettings, &panel().CmdAbout}) {
    const QString text = readable(button->state().toolTipText);
    EXPECT_FALSE(all.filter(text).isEmpty()) << text.toStdString();
  }
  EXPECT_EQ(entries(0).size(), 6);
}

TEST_F(PanelMenuTest, ShowsTheShortcuts) {
  EXPECT_TRUE(entry("Save record…")->text().endsWith("\tCtrl+S"));
  EXPECT_TRUE(entry("Copy as text")->text().endsWith("\tCtrl+C"));
  EXPECT_TRUE(entry("Read parameters")->text().endsWith("\tF5"));
}

TEST_F(PanelMenuTest, AnEntryPressesItsButton) {
  entry("Read parameters")->trigger();
  EXPECT_TRUE(inside(control()).bDataValid);
}

TEST_F(PanelMenuTest, AnEntryIsEnabledWhileItsButtonIs) {
  EXPECT_TRUE(entry("Save record…")->isEnabled());
  control().put_DeviceActive(1);
  EXPECT_FALSE(entry("Save record…")->isEnabled());
  EXPECT_FALSE(entry("Read parameters")->isEnabled());
  control().put_DeviceActive(0);
  EXPECT_TRUE(entry("Save record…")->isEnabled());
}

TEST_F(PanelMenuTest, OpensWithTheKeyboard) {
  QTest::keyClick(&*window, Qt::Key_F, Qt::AltModifier);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  QTest::keyClick(menu, Qt::Key_Escape);
}

TEST_F(PanelMenuTest, QuitsWithItsShortcut) {
  press(Qt::Key_Q, Qt::ControlModifier);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(PanelMenuTest, HasTheLanguageOfTheControl) {
  control().put_Language(1);
  control().UserControl_Show();
  window->controlIsUp();
  EXPECT_EQ(window->menuBar()->actions()[0]->text(), "&Datei");
  EXPECT_FALSE(entries(1).filter("Parameter aus Modul lesen").isEmpty());
  EXPECT_EQ(window->menuBar()->actions().size(), 4);
}

}  // namespace
}  // namespace tessara::testing
