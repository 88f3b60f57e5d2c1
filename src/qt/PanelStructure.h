#pragma once

#include <QKeySequence>
#include <span>
#include <string_view>
#include <vector>

#include "control/Panel.h"

namespace tessara {

/// A caption and the widget that it names.
struct CaptionOf {
  std::u16string_view caption;
  std::u16string_view named;
};
std::span<const CaptionOf> captions();

/// The name of the caption of that widget; empty if it has none.
std::u16string_view captionFor(std::u16string_view widget);

/// A button and the keys that press it while the focus is on the panel.
struct ShortcutOf {
  std::u16string_view button;
  QKeySequence keys;
};
const std::vector<ShortcutOf>& shortcuts();

/// The keys of that widget; none for most.
QKeySequence shortcutFor(std::u16string_view widget);

/// What the Tab key reaches, in its order.
std::span<const std::u16string_view> tabOrder();

/// Widgets that take the room of their neighbours to the right as long as those show nothing.
struct Growth {
  std::vector<std::u16string_view> growing;
  /// From left to right.
  std::vector<std::u16string_view> neighbours;
};
const std::vector<Growth>& growths();

/// True if there is something to see of the widget: it is visible and, if it shows a picture, has
/// one.
bool showsSomething(const Widget& widget);

}  // namespace tessara
