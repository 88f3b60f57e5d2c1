#pragma once

#include <QLineEdit>
#include <QPainter>
#include <QWidget>

#include "qt/Look.h"

namespace tessara {

/// Background and border of an input field; the border shows the focus.
void drawField(QPainter& painter, const QWidget& field, const Look& look);

/// The arrow of a drop-down list at the right end of its field.
void drawArrow(QPainter& painter, const QWidget& field, const Look& look);

/// Makes the background of an editor transparent, in the colours of the look.
void makeTransparent(QLineEdit& editor, const Look& look);

}  // namespace tessara
