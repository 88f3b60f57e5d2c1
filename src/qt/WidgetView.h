#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "qt/Look.h"
#include "widgets/Widget.h"

namespace tessara {

class WidgetView;

/// Applies the user's input in a view to its model, then updates the view from the model. The view
/// may be deleted when it returns.
using InputHandler =
    std::function<void(WidgetView& view, const std::function<void(Widget&)>& action)>;

/// The Qt view of one widget of the panel. It has no state of its own; it shows that of the model.
class WidgetView {
 public:
  explicit WidgetView(Widget& subject) : subject_(subject) {}
  WidgetView(const WidgetView&) = delete;
  WidgetView& operator=(const WidgetView&) = delete;
  virtual ~WidgetView() = default;

  [[nodiscard]] Widget& subject() const { return subject_; }

  /// The Qt widget on the panel, always the same one.
  [[nodiscard]] virtual QWidget& widget() = 0;
  /// Shows the current state of the model.
  virtual void sync() = 0;
  virtual void setLook(const Look& look) = 0;

 protected:
  /// Shows what all widgets have: enabled, visible, tool tip; `hint` is an additional text below
  /// the tool tip, empty for none.
  void syncCommon(const QString& hint = {});

 private:
  Widget& subject_;
};

/// Runs an action of the user and returns its error message; nothing on success.
QString failureOf(const std::function<void()>& action);

/// Lets the user copy the result of `text`, by the system's shortcut and from the context menu.
void makeCopyable(QWidget& widget, std::function<QString()> text);

/// A tool tip as markup that wraps: a title in bold and a text; either may be empty.
QString toolTipMarkup(const QString& title, const QString& text);

}  // namespace tessara
