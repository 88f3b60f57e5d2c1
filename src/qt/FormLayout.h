#pragma once

#include <QRect>
#include <QSize>
#include <functional>
#include <map>

#include "widgets/Form.h"

namespace tessara {

/// The layout of a form. Widgets keep their places, but move apart where a text needs more space
/// than is left before its right neighbour or the edge of the form. Buttons keep their distance
/// from the right edge.
class FormLayout {
 public:
  /// The space that the text of a widget needs, in logical pixels: its width on one line, or, for a
  /// multi-line text, 0 and the height at that width.
  struct Needs {
    std::function<double(const Widget&)> width;
    std::function<double(const Widget&, double width)> height;
  };

  FormLayout(const Form& form, double pixelsPerTwip, const Needs& needs);

  /// The geometry of the widget in the view, in logical pixels.
  [[nodiscard]] QRect place(const Widget& widget) const;
  [[nodiscard]] QSize size() const;

 private:
  /// Space inserted at a line across the form: position in twips from the edge, size in logical
  /// pixels.
  using Insertions = std::map<std::int32_t, double>;

  [[nodiscard]] double at(std::int32_t twips, const Insertions& insertions) const;
  [[nodiscard]] std::int32_t rightOf(const Widget& widget) const;
  [[nodiscard]] QRectF roomOf(const Widget& widget) const;
  void widenFor(const Needs& needs);
  void heightenFor(const Needs& needs);
  void placeButtons(const Needs& needs);

  const Form& form_;
  double pixels_;
  std::int32_t edge_;
  Insertions across_;
  Insertions down_;
  std::map<const Widget*, QRectF> buttons_;
};

}  // namespace tessara
