#pragma once

#include <QDialog>
#include <functional>
#include <map>

#include "qt/WidgetView.h"
#include "widgets/Form.h"

namespace tessara {

/// Shows a form: draws the model in a window with the frame of the system, modal and in front of
/// its owner, and passes the user's input to the model.
///
/// Tab moves between the controls, the arrow keys between the options. Return presses the default
/// button of the form; Escape and the close button of the frame press its cancel button. The window
/// is large enough for the texts of the language.
class FormView : public QDialog, private WidgetObserver {
 public:
  FormView(Form& form, QWidget* owner);
  FormView(const FormView&) = delete;
  FormView& operator=(const FormView&) = delete;
  ~FormView() override;

  /// Shows an error caused by the user's input; a message box by default.
  std::function<void(const QString& text)> showError;

  /// The Qt widget that draws this widget of the form; null for the title bar.
  [[nodiscard]] QWidget* viewOf(const Widget& widget) const;

  /// Detaches from the form and closes the window, which deletes itself after the current event.
  void release();

  /// Escape, or the close button of the frame.
  void reject() override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void widgetChanged(const Widget& widget, WidgetAspect aspect) override;
  void widgetRefreshed(const Widget& widget) override;

  void makeViews();
  WidgetView* makeView(Widget& widget);
  void perform(WidgetView& view, const std::function<void(Widget&)>& action);
  void layOut();

  /// Null once detached.
  Form* form_;
  /// The views are children of this widget, which deletes them.
  std::map<const Widget*, WidgetView*> views_;
};

}  // namespace tessara
