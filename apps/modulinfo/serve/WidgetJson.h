#pragma once

#include "json/JsonText.h"
#include "widgets/Widget.h"

namespace tessara {

/// The visible state of a widget: an object with the keys that a widget of its kind has. Places are
/// in twips, colours are 0xRRGGBB.
JsonText widgetJson(const Widget& widget);

}  // namespace tessara
