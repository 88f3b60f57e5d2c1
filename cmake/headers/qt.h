// Qt as the views and the windows use it, precompiled once.
#include "standard.h"

#include <QtGui/QtGui>
#include <QtWidgets/QtWidgets>
