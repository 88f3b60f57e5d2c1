#pragma once

#include <QPointer>
#include <QWidget>

#include "qt/FormView.h"
#include "widgets/Form.h"

namespace tessara {

/// Shows the dialogs of a control. It must outlive the control, or be removed from it first.
class QtForms : public FormObserver {
 public:
  /// The dialogs open in front of the window of `owner`, the widget that shows the panel.
  explicit QtForms(QWidget& owner) : owner_(&owner) {}
  ~QtForms() override;

  void formShown(Form& form) override;
  void formHidden(Form& form) override;

 private:
  QPointer<QWidget> owner_;
  std::map<const Form*, QPointer<FormView>> views_;
};

}  // namespace tessara
