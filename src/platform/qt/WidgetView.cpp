#include "platform/qt/WidgetView.h"

#include "platform/qt/QtText.h"

namespace tessara {

void WidgetView::syncCommon(const QString& hint) {
  const WidgetState& state = subject_.state();
  QString text = readable(state.toolTipText);
  if (!text.isEmpty() && !hint.isEmpty()) {
    text += " (" + hint + ")";
  }
  QWidget& own = widget();
  own.setToolTip(toolTipMarkup(readable(state.toolTipTitle), text));
  own.setAccessibleDescription(readable(state.toolTipText));
  own.setEnabled(state.enabled);
  own.setVisible(state.visible);
}

QString toolTipMarkup(const QString& title, const QString& text) {
  if (title.isEmpty() && text.isEmpty()) {
    return {};
  }
  const QString head = title.isEmpty() ? QString() : "<b>" + title.toHtmlEscaped() + "</b><br>";
  return "<p>" + head + text.toHtmlEscaped() + "</p>";
}

}  // namespace tessara
