#include "PanelMenu.h"

#include <QAbstractButton>
#include <QCoreApplication>

#include "qt/PanelStructure.h"
#include "qt/QtText.h"

namespace tessara {
namespace {

class PanelMenu {
  Q_DECLARE_TR_FUNCTIONS(PanelMenu)

 public:
  PanelMenu(QMenuBar& bar, const ModulInfoPanel& panel) : bar_(bar), panel_(panel) {}

  void begin(const QString& title) { menu_ = bar_.addMenu(title); }
  void separate() { menu_->addSeparator(); }

  /// An entry that presses the button, under the text of its tool tip.
  void addButton(const Widget& widget) { addButton(widget, readable(widget.state().toolTipText)); }
  void addButton(const Widget& widget, const QString& text) {
    auto* button = static_cast<QAbstractButton*>(panel_.viewOf(widget));
    QAction* action = menu_->addAction(text);
    // The panel itself handles the keys of its buttons.
    showKeys(*action, shortcutFor(widget.name()));
    QObject::connect(action, &QAction::triggered, button, &QAbstractButton::click);
    QObject::connect(menu_, &QMenu::aboutToShow, action,
                     [action, button] { action->setEnabled(button->isEnabled()); });
  }

  QAction* addCommand(const QString& text, const QKeySequence& keys,
                      const std::function<void()>& command) {
    QAction* action = menu_->addAction(text);
    action->setShortcut(keys);
    // Also from the program's other windows.
    action->setShortcutContext(Qt::ApplicationShortcut);
    QObject::connect(action, &QAction::triggered, &bar_, command);
    return action;
  }

  /// An entry that shows the keys without handling them: the focused widget may take them first.
  void addCommandShowingKeys(const QString& text, const QKeySequence& keys,
                             const std::function<void()>& command) {
    showKeys(*addCommand(text, {}, command), keys);
  }

 private:
  static void showKeys(QAction& action, const QKeySequence& keys) {
    if (!keys.isEmpty()) {
      action.setText(action.text() + '\t' + keys.toString(QKeySequence::NativeText));
    }
  }

  QMenuBar& bar_;
  const ModulInfoPanel& panel_;
  QMenu* menu_ = nullptr;
};

}  // namespace

void makeMenus(QMenuBar& bar, const ModulInfoPanel& host, const HostCommands& commands) {
  const auto button = [&panel = host.control().panel()](std::u16string_view name) -> const Widget& {
    return panel.widget(name);
  };
  bar.clear();
  PanelMenu menu(bar, host);
  //: A menu
  menu.begin(PanelMenu::tr("&File"));
  menu.addButton(button(u"CmdOpenDiskParameter"), PanelMenu::tr("&Open record…"));
  menu.addButton(button(u"CmdSave2DiskParameter"), PanelMenu::tr("&Save record…"));
  menu.addCommand(PanelMenu::tr("Save as P&DF…"), {}, commands.savePdf);
  menu.addButton(button(u"CmdPrintConfiguration"), PanelMenu::tr("&Print…"));
  menu.addCommandShowingKeys(PanelMenu::tr("&Copy as text"), QKeySequence::Copy, commands.copyText);
  menu.separate();
  menu.addCommand(PanelMenu::tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), commands.quit);

  //: A menu: reads the module, transfers its parameters
  menu.begin(PanelMenu::tr("&Module"));
  menu.addButton(button(u"CmdDeviceInfo"));
  menu.addButton(button(u"CmdStoreParameter"));
  menu.addButton(button(u"CmdOfflineConfigure"));

  //: A menu: windows besides the panel
  menu.begin(PanelMenu::tr("&View"));
  //: Shows or hides the window that lists the events
  menu.addCommand(PanelMenu::tr("&Events"), QKeySequence(Qt::CTRL | Qt::Key_E),
                  commands.showEvents);

  //: A menu
  menu.begin(PanelMenu::tr("&Help"));
  menu.addButton(button(u"CmdHelp"));
  menu.addButton(button(u"cmdSettings"));
  menu.addButton(button(u"CmdAbout"));
}

}  // namespace tessara
