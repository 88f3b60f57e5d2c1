#pragma once

#include <QKeySequence>
#include <span>
#include <string_view>
#include <vector>

#include "control/Panel.h"

namespace tessara {

/// A caption and the widget that it labels.
struct CaptionOf {
  std::u16string_view caption;
  std::u16string_view named;
};
std::span<const CaptionOf> captions();

/// The name of the widget's caption; empty if it has none.
std::u16string_view captionFor(std::u16string_view widget);

/// A button and the shortcut that presses it while the panel has the focus.
struct ShortcutOf {
  std::u16string_view button;
  QKeySequence keys;
};
const std::vector<ShortcutOf>& shortcuts();

/// The shortcut of the widget; empty for most.
QKeySequence shortcutFor(std::u16string_view widget);

/// The widgets that the Tab key reaches, in order.
std::span<const std::u16string_view> tabOrder();

/// A widget that takes the space of its right neighbours while those show nothing.
struct Growth {
  std::vector<std::u16string_view> growing;
  /// From left to right.
  std::vector<std::u16string_view> neighbours;
};
const std::vector<Growth>& growths();

/// True if the widget shows something: it is visible and, if it is an image, has a picture.
bool showsSomething(const Widget& widget);

}  // namespace tessara
