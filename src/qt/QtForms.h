#pragma once

#include <QPointer>
#include <QWidget>

#include "qt/FormView.h"
#include "widgets/Form.h"

namespace tessara {

/// Puts the dialogs of a control on the screen. It has to outlive the control, or be taken from it
/// first.
class QtForms : public FormObserver {
 public:
  /// The dialogs come up in front of the window of `owner`, the widget that shows the panel.
  explicit QtForms(QWidget& owner) : owner_(&owner) {}
  ~QtForms() override;

  void formShown(Form& form) override;
  void formHidden(Form& form) override;

 private:
  QPointer<QWidget> owner_;
  std::map<const Form*, QPointer<FormView>> views_;
};

}  // namespace tessara
