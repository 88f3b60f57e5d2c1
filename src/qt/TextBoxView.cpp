#include "qt/TextBoxView.h"

#include <QPainter>
#include <QRegularExpressionValidator>

#include "qt/FieldPaint.h"
#include "qt/QtText.h"

namespace tessara {

TextBoxView::TextBoxView(Widget& subject, const InputHandler& handleInput, QWidget* parent)
    : QLineEdit(parent), WidgetView(subject) {
  setFrame(false);
  setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,3}"), this));
  connect(this, &QLineEdit::textEdited, this, [this, handleInput](const QString& typed) {
    handleInput(*this, [&](Widget& widget) { widget.type(fromQt(typed)); });
  });
}

void TextBoxView::sync() {
  const QString wanted = toQt(subject().text());
  if (text() != wanted) {
    setText(wanted);
  }
  syncCommon();
}

void TextBoxView::setLook(const Look& look) {
  look_ = look;
  setFont(look.valueFont);
  setTextMargins(qRound(look.px(5)), 0, qRound(look.px(5)), 0);
  makeTransparent(*this, look);
}

void TextBoxView::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(this);
    drawField(painter, *this, look_);
  }
  QLineEdit::paintEvent(event);
}

}  // namespace tessara
