#include "qt/DropDownView.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "qt/FieldPaint.h"
#include "qt/QtText.h"

namespace tessara {

DropDownView::DropDownView(Widget& subject, Editing editing, InputHandler handleInput,
                           QWidget* parent)
    : QComboBox(parent), WidgetView(subject), handleInput_(std::move(handleInput)) {
  if (editing == Editing::Digits) {
    makeEditable();
  }
  // Also for the line already selected, as the model expects it.
  connect(this, &QComboBox::activated, this, &DropDownView::choose);
}

void DropDownView::makeEditable() {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);
  lineEdit()->setFrame(false);
  setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,7}"), this));
  connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
    handleInput_(*this, [&](Widget& widget) { widget.type(fromQt(text)); });
  });
  connect(lineEdit(), &QLineEdit::returnPressed, this, [this] {
    if (subject().state().index >= 0) {
      choose(subject().state().index);
    }
  });
}

void DropDownView::choose(int line) {
  handleInput_(*this, [line](Widget& widget) { widget.select(line); });
}

void DropDownView::sync() {
  const QSignalBlocker quiet(this);
  syncItems();
  const QString text = toQt(subject().text());
  const int cursor = isEditable() ? lineEdit()->cursorPosition() : 0;
  setCurrentIndex(subject().state().index);
  if (isEditable()) {
    lineEdit()->setText(text);
    lineEdit()->setCursorPosition(cursor);
  }
  syncCommon();
  if (subject().state().toolTipText.empty() && !isEditable()) {
    setToolTip(toolTipMarkup({}, text));
  }
  update();
}

void DropDownView::syncItems() {
  QStringList items;
  for (const auto& item : subject().state().items) {
    items += toQt(item);
  }
  bool same = items.size() == count();
  for (int line = 0; same && line < count(); ++line) {
    same = items[line] == itemText(line);
  }
  if (!same) {
    clear();
    addItems(items);
    setMaxVisibleItems(std::clamp(count(), 10, 16));
  }
}

void DropDownView::setLook(const Look& look) {
  look_ = look;
  setFont(look.valueFont);
  view()->setFont(look.valueFont);
  if (isEditable()) {
    makeTransparent(*lineEdit(), look);
    layOutEditor();
  }
  update();
}

QString DropDownView::shownText() const {
  return fontMetrics().elidedText(currentText(), Qt::ElideMiddle, textRect().width());
}

QRect DropDownView::textRect() const {
  return rect().adjusted(qRound(look_.px(6)), 0, -qRound(look_.px(18)), 0);
}

void DropDownView::layOutEditor() {
  if (isEditable()) {
    lineEdit()->setGeometry(textRect().adjusted(-2, 1, 0, -1));
  }
}

void DropDownView::resizeEvent(QResizeEvent* event) {
  QComboBox::resizeEvent(event);
  layOutEditor();
}

void DropDownView::wheelEvent(QWheelEvent* event) {
  // Scrolling over the panel must not select another port.
  if (hasFocus()) {
    QComboBox::wheelEvent(event);
  } else {
    event->ignore();
  }
}

void DropDownView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  drawField(painter, *this, look_);
  drawArrow(painter, *this, look_);
  if (!isEditable()) {
    painter.setFont(font());
    painter.setPen(isEnabled() ? look_.text : look_.faint);
    painter.drawText(textRect(), Qt::AlignVCenter | Qt::TextSingleLine, shownText());
  }
}

}  // namespace tessara
