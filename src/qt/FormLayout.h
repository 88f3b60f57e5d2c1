#pragma once

#include <QRect>
#include <QSize>
#include <functional>
#include <map>

#include "widgets/Form.h"

namespace tessara {

/// Where the widgets of a form stand. They keep their places, spread apart where a text needs more
/// room than there is before its neighbour on the right, or before the edge of the form. Buttons
/// keep their distance from the right edge.
class FormLayout {
 public:
  /// What the text of a widget needs in logical pixels: its width in one line, or, for a text in
  /// several lines, 0 and the height at that width.
  struct Needs {
    std::function<double(const Widget&)> width;
    std::function<double(const Widget&, double width)> height;
  };

  FormLayout(const Form& form, double pixelsPerTwip, const Needs& needs);

  /// The widget's place in the view, in logical pixels.
  [[nodiscard]] QRect place(const Widget& widget) const;
  [[nodiscard]] QSize size() const;

 private:
  /// Room put in at a line across the form: by twips from its edge, in logical pixels.
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
