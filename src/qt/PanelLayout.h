#pragma once

#include <QRect>
#include <QSizeF>
#include <map>

#include "widgets/Widget.h"

namespace tessara {

/// The layout of a panel in a view of a given size. The panel is scaled as a whole, as far as both
/// width and height of the view allow; the values take the remaining width.
class PanelLayout {
 public:
  /// `pixelsPerTwip` applies to the panel at its natural size.
  PanelLayout(const WidgetOwner& panel, const QSizeF& view, double pixelsPerTwip);

  /// The scale factor of the panel.
  [[nodiscard]] double scale() const { return scale_; }
  /// The geometry of the widget in the view, in logical pixels.
  [[nodiscard]] QRect place(const Widget& widget) const;

 private:
  [[nodiscard]] double across(double twips) const;

  double scale_;
  double pixels_;
  double spare_;
  /// The width that a widget gains, in twips.
  std::map<const Widget*, std::int32_t> growth_;
};

}  // namespace tessara
