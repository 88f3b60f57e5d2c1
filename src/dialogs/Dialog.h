#pragma once

#include <memory>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/Platform.h"
#include "widgets/Form.h"

namespace tessara {

/// The common parts of the control's two dialogs: title bar, icon and the look of their buttons.
class Dialog : public Form {
 public:
  /// `platform` must outlive the dialog.
  Dialog(std::u16string name, Platform& platform) : Form(std::move(name)), platform_(platform) {}

  /// The folder of the icon file; set it before the dialog is shown.
  void SetAppPath(std::u16string appPath) { sAppPath = std::move(appPath); }

  Widget UniFormCaptionB1{*this, u"UniFormCaptionB1", WidgetKind::FormCaption};

 protected:
  /// The design of a text button, with the idle colours.
  static WidgetState button(std::u16string caption, const Place& place);
  /// Makes the button show by its colours whether the pointer is over it, and run `click` when
  /// pressed.
  static void makeButton(Widget& button, std::function<void()> click);
  static void showIdle(Widget& button);

  /// Attaches the title bar, and sets the icon that the setting Icon names if there is such a file.
  /// A file that is not a picture is error 481.
  void Form_Load() override;

  Platform& platform_;

 private:
  std::u16string sAppPath;
};

/// Creates the one dialog of its kind on this thread, which lasts as long as its caller holds it;
/// `shared` is where the thread knows it. A second one is error 400: the first is shown already.
template <class Kind>
std::shared_ptr<Kind> createDialog(std::weak_ptr<Kind>& shared, Platform& platform) {
  if (const auto shown = shared.lock()) {
    throw RunTimeError(ErrorNumber::FormAlreadyShown, toUtf8(shown->name()) + " is shown already");
  }
  auto dialog = std::make_shared<Kind>(platform);
  shared = dialog;
  return dialog;
}

}  // namespace tessara
