#pragma once

#include <QColor>
#include <QFont>
#include <QWidget>

#include "qt/Picture.h"

namespace tessara {

/// The font, with families behind its own that write Chinese or Japanese as the language of the
/// control does. In all other languages the font as it is.
QFont fontOfLanguage(QFont font);

/// How the panel looks at this moment: colours that follow the palette of the system, light or
/// dark, and measures that follow the size of the panel.
struct Look {
  /// The look for a panel drawn at that scale; 1 is 96 pixels to the inch at the system's own size.
  static Look of(const QWidget& panel, double scale);

  double scale = 1;
  bool dark = false;

  /// What is read: values; captions; what is absent or cannot be used.
  QColor text;
  QColor caption;
  QColor faint;
  /// The ground of frames and fields, and the ground of what can be pressed.
  QColor card;
  QColor raised;
  /// Edges of frames, and of what can be operated.
  QColor line;
  QColor edge;
  /// What acts or has the focus.
  QColor accent;

  QFont captionFont;
  QFont valueFont;
  QFont strongFont;

  /// Logical pixels of a measure that is given at scale 1.
  [[nodiscard]] double px(double measure) const { return measure * scale; }
  /// The colours in which a button's picture is drawn.
  [[nodiscard]] Inks inks(bool enabled) const;
  /// The ground of a text button, 0xRRGGBB as the model has it for a light window: as far from the
  /// ground of a dark one.
  [[nodiscard]] QColor ground(QRgb colour) const;
  /// That share of the accent over the ground.
  [[nodiscard]] QColor tint(const QColor& ground, double share) const;
};

}  // namespace tessara
