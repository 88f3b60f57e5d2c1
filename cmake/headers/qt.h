// Precompiled for the sources that use Qt.
#include "standard.h"

#include <QtGui/QtGui>
#include <QtWidgets/QtWidgets>
