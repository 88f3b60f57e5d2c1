#pragma once

#include "serve/JsonRpc.h"
#include "widgets/Widget.h"

namespace tessara {

/// What can be seen of a widget: an object with those of the keys that a widget of its kind has.
/// Places are in twips, colours are 0xRRGGBB.
OrderedJson widgetJson(const Widget& widget);

}  // namespace tessara
