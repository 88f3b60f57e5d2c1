#pragma once

#include <QRect>
#include <QSizeF>
#include <map>

#include "widgets/Widget.h"

namespace tessara {

/// Where the widgets of a panel stand in a view of a certain size. The panel is enlarged as a
/// whole, as far as the view's width and height both allow; width that is left over goes to the
/// values.
class PanelLayout {
 public:
  /// `pixelsPerTwip` is that of the panel at its own size.
  PanelLayout(const WidgetOwner& panel, const QSizeF& view, double pixelsPerTwip);

  /// How much the panel is enlarged.
  [[nodiscard]] double scale() const { return scale_; }
  /// The widget's place in the view, in logical pixels.
  [[nodiscard]] QRect place(const Widget& widget) const;

 private:
  [[nodiscard]] double across(double twips) const;

  double scale_;
  double pixels_;
  double spare_;
  /// By how many twips a widget is wider than its place says.
  std::map<const Widget*, std::int32_t> growth_;
};

}  // namespace tessara
