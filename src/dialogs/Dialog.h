#pragma once

#include "platform/Platform.h"
#include "widgets/Form.h"

namespace tessara {

/// What the control's two dialogs have in common: title bar, icon and the look of their buttons.
class Dialog : public Form {
 public:
  /// `platform` has to outlive the dialog.
  Dialog(std::u16string name, Platform& platform) : Form(std::move(name)), platform_(platform) {}

  /// The folder of the icon file, to be set before the dialog is shown.
  void SetAppPath(std::u16string appPath) { sAppPath = std::move(appPath); }

  Widget UniFormCaptionB1{*this, u"UniFormCaptionB1", WidgetKind::FormCaption};

 protected:
  /// A text button of the dialogs as it is designed, with the idle colours.
  static WidgetState button(std::u16string caption, const Place& place);
  /// The button shows by its colours whether the pointer is over it, and runs `click` when pressed.
  static void makeButton(Widget& button, std::function<void()> click);
  static void showIdle(Widget& button);

  /// Attaches the title bar, and sets the icon that the setting Icon names if there is such a file.
  /// One that is no picture is error 481.
  void Form_Load() override;

  Platform& platform_;

 private:
  std::u16string sAppPath;
};

}  // namespace tessara
