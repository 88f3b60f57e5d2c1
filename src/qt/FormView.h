#pragma once

#include <QDialog>
#include <functional>
#include <map>

#include "qt/WidgetView.h"
#include "widgets/Form.h"

namespace tessara {

/// A form on the screen: draws the model in a window with the frame of the system, modal and in
/// front of its owner, and brings into it what a person does.
///
/// Tab goes through what can be operated, the arrow keys among the options. Return presses the
/// form's default button; Escape, and closing the window by its frame, the cancel button. The
/// window is as large as the texts of the language need.
class FormView : public QDialog, private WidgetObserver {
 public:
  FormView(Form& form, QWidget* owner);
  FormView(const FormView&) = delete;
  FormView& operator=(const FormView&) = delete;
  ~FormView() override;

  /// Shows what went wrong in something that the person did. A message box at first.
  std::function<void(const QString& text)> showError;

  /// The Qt widget that draws that one of the form; null for the title bar.
  [[nodiscard]] QWidget* viewOf(const Widget& widget) const;

  /// Lets go of the form and closes the window, which deletes itself when the event is over.
  void release();

  /// Escape, or the frame of the window.
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

  /// Null once the form is let go of.
  Form* form_;
  /// The views are children of this widget, which deletes them.
  std::map<const Widget*, WidgetView*> views_;
};

}  // namespace tessara
