#include "qt/WidgetView.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <exception>
#include <utility>

#include "qt/QtText.h"

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

QString failureOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const std::exception& error) {
    return QString::fromUtf8(error.what());
  }
  return {};
}

void makeCopyable(QWidget& widget, std::function<QString()> text) {
  widget.setContextMenuPolicy(Qt::ActionsContextMenu);
  auto* copy = new QAction(QLineEdit::tr("&Copy"), &widget);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  QObject::connect(copy, &QAction::triggered, &widget,
                   [text = std::move(text)] { QGuiApplication::clipboard()->setText(text()); });
  widget.addAction(copy);
}

QString toolTipMarkup(const QString& title, const QString& text) {
  if (title.isEmpty() && text.isEmpty()) {
    return {};
  }
  const QString head = title.isEmpty() ? QString() : "<b>" + title.toHtmlEscaped() + "</b><br>";
  return "<p>" + head + text.toHtmlEscaped() + "</p>";
}

}  // namespace tessara
