#include "PanelMenu.h"

#include <QAbstractButton>

#include "qt/PanelStructure.h"
#include "qt/QtText.h"

namespace tessara {
namespace {

class MenuMaker {
 public:
  MenuMaker(QMenuBar& bar, const ModulInfoPanel& panel, const HostTexts& words)
      : bar_(bar), panel_(panel), words_(words) {}

  void begin(Word title) { menu_ = bar_.addMenu(words_(title)); }
  void separate() { menu_->addSeparator(); }

  /// An entry that does what the button does, under the button's own text without its dots' blanks.
  void addButton(const Widget& widget) { addButton(widget, readable(widget.state().toolTipText)); }
  void addButton(const Widget& widget, Word word) { addButton(widget, words_(word)); }

  QAction* addCommand(Word word, const QKeySequence& keys, const std::function<void()>& command) {
    QAction* action = menu_->addAction(words_(word));
    action->setShortcut(keys);
    // Also from the windows beside that of the panel.
    action->setShortcutContext(Qt::ApplicationShortcut);
    QObject::connect(action, &QAction::triggered, &bar_, command);
    return action;
  }

  /// An entry whose keys are told and not taken: whatever has the focus is asked first.
  void addCommandWithToldKeys(Word word, const QKeySequence& keys,
                              const std::function<void()>& command) {
    tellKeys(*addCommand(word, {}, command), keys);
  }

 private:
  void addButton(const Widget& widget, const QString& text) {
    auto* button = static_cast<QAbstractButton*>(panel_.viewOf(widget));
    QAction* action = menu_->addAction(text);
    // The panel itself listens to the keys of its buttons.
    tellKeys(*action, shortcutFor(widget.name()));
    QObject::connect(action, &QAction::triggered, button, &QAbstractButton::click);
    QObject::connect(menu_, &QMenu::aboutToShow, action,
                     [action, button] { action->setEnabled(button->isEnabled()); });
  }

  static void tellKeys(QAction& action, const QKeySequence& keys) {
    if (!keys.isEmpty()) {
      action.setText(action.text() + '\t' + keys.toString(QKeySequence::NativeText));
    }
  }

  QMenuBar& bar_;
  const ModulInfoPanel& panel_;
  const HostTexts& words_;
  QMenu* menu_ = nullptr;
};

}  // namespace

void makeMenus(QMenuBar& bar, const ModulInfoPanel& host, const HostTexts& words,
               const HostCommands& commands) {
  const auto button = [&panel = host.control().panel()](std::u16string_view name) -> const Widget& {
    return panel.widget(name);
  };
  bar.clear();
  MenuMaker make(bar, host, words);
  make.begin(Word::MenuFile);
  make.addButton(button(u"CmdOpenDiskParameter"), Word::OpenRecord);
  make.addButton(button(u"CmdSave2DiskParameter"), Word::SaveRecord);
  make.addCommand(Word::SavePdf, {}, commands.savePdf);
  make.addButton(button(u"CmdPrintConfiguration"), Word::PrintRecord);
  make.addCommandWithToldKeys(Word::CopyText, QKeySequence::Copy, commands.copyText);
  make.separate();
  make.addCommand(Word::Quit, QKeySequence(Qt::CTRL | Qt::Key_Q), commands.quit);

  make.begin(Word::MenuModule);
  make.addButton(button(u"CmdDeviceInfo"));
  make.addButton(button(u"CmdStoreParameter"));
  make.addButton(button(u"CmdOfflineConfigure"));

  make.begin(Word::MenuView);
  make.addCommand(Word::ShowEvents, QKeySequence(Qt::CTRL | Qt::Key_E), commands.showEvents);

  make.begin(Word::MenuHelp);
  make.addButton(button(u"CmdHelp"));
  make.addButton(button(u"cmdSettings"));
  make.addButton(button(u"CmdAbout"));
}

}  // namespace tessara
