#pragma once

#include <QColor>
#include <QFont>
#include <QWidget>

#include "qt/Picture.h"

namespace tessara {

/// The font, with fallback families for Chinese or Japanese if that is the language of the control;
/// in all other languages the font itself.
QFont fontOfLanguage(QFont font);

/// The current appearance of the panel: colours from the system's palette, light or dark, and fonts
/// and measures scaled with the panel.
struct Look {
  /// The look for a panel drawn at that scale; 1 is 96 pixels to the inch at the system's own size.
  static Look of(const QWidget& panel, double scale);

  /// The space between a text and its focus frame, at scale 1.
  static constexpr double focusMargin = 4;

  double scale = 1;
  bool dark = false;

  /// Text colours: values; captions; absent values and disabled text.
  QColor text;
  QColor caption;
  QColor faint;
  /// The background of frames and fields, and that of buttons.
  QColor card;
  QColor raised;
  /// The border of frames, and that of controls.
  QColor line;
  QColor edge;
  /// The colour of activity and focus.
  QColor accent;

  QFont captionFont;
  QFont valueFont;
  QFont strongFont;

  /// The logical pixels of a measure at scale 1.
  [[nodiscard]] double px(double measure) const { return measure * scale; }
  /// The colours of a button's picture.
  [[nodiscard]] Inks inks(bool enabled) const;
  /// The background of a text button. The model gives it as 0xRRGGBB for a light window; in a dark
  /// window the result has the same contrast to the background.
  [[nodiscard]] QColor ground(QRgb colour) const;
  /// The background tinted with that share of the accent.
  [[nodiscard]] QColor tint(const QColor& ground, double share) const;
};

}  // namespace tessara
