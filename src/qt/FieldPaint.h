#pragma once

#include <QLineEdit>
#include <QPainter>
#include <QWidget>

#include "qt/Look.h"

namespace tessara {

/// The ground and edge of something that a person writes or chooses in; the edge tells the focus.
void drawField(QPainter& painter, const QWidget& field, const Look& look);

/// The arrow of a drop-down list at the right end of its field.
void drawArrow(QPainter& painter, const QWidget& field, const Look& look);

/// Lets the field under an editor show through, in the colours of the look.
void makeTransparent(QLineEdit& editor, const Look& look);

}  // namespace tessara
