#pragma once

#include <QString>
#include <QWidget>
#include <functional>

#include "qt/Look.h"
#include "widgets/Widget.h"

namespace tessara {

class WidgetView;

/// Does to the model of a view what a person has done to the view, and brings the view in line with
/// what came of it. The view may be gone when it returns.
using PersonActs =
    std::function<void(WidgetView& view, const std::function<void(Widget&)>& action)>;

/// The Qt side of one widget of the panel. It holds no state of its own: it shows the model's.
class WidgetView {
 public:
  explicit WidgetView(Widget& subject) : subject_(subject) {}
  WidgetView(const WidgetView&) = delete;
  WidgetView& operator=(const WidgetView&) = delete;
  virtual ~WidgetView() = default;

  [[nodiscard]] Widget& subject() const { return subject_; }

  /// The widget that stands on the panel, always the same one.
  [[nodiscard]] virtual QWidget& widget() = 0;
  /// Shows the model as it is now.
  virtual void sync() = 0;
  virtual void setLook(const Look& look) = 0;

 protected:
  /// Shows what every kind of widget has: enabled, visible, the tool tip; `hint` is the text that a
  /// tool tip of the view's own making adds below, empty for none.
  void syncCommon(const QString& hint = {});

 private:
  Widget& subject_;
};

/// Does something that a person wants done, and gives what went wrong; nothing if it went well.
QString failureOf(const std::function<void()>& action);

/// Lets a person copy what `text` gives, by the system's key and from the context menu.
void makeCopyable(QWidget& widget, std::function<QString()> text);

/// A tool tip as markup that wraps: a title in bold and a text, either may be empty.
QString toolTipMarkup(const QString& title, const QString& text);

}  // namespace tessara
