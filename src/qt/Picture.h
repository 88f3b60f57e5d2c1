#pragma once

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <memory>

#include "widgets/Widget.h"

namespace tessara {

/// The colours of a button's picture: its lines, and the part that shows what happens.
struct Inks {
  QColor line;
  QColor accent;

  bool operator==(const Inks&) const = default;
};

/// Something to draw, sharp at any size where its source is a vector: a picture of the panel's own
/// or a file of the host. A cheap value.
class Picture {
 public:
  /// Nothing to draw.
  Picture() = default;

  /// The picture of a source: a number from the state pictures, a key from the button pictures
  /// (drawn in the inks) or the other pictures of our own ("flags/DE"), or else the path of a
  /// picture file. A source that does not exist, or is not a picture, gives nothing to draw.
  static Picture of(const PictureSource& source, const Inks& inks);

  /// The picture of a file, recognised by its content: SVG, PNG, JPEG, GIF, BMP or ICO. One that
  /// cannot be read or is not a picture within the limits of readPictureFile() is an invalid
  /// picture (error 481) whose message names file and cause.
  static Picture fromFile(const QString& path);

  /// The icon of the programs that show the panel.
  static Picture application();

  [[nodiscard]] bool isNull() const { return !vector_ && raster_.isNull(); }

  /// The picture in the sizes that window systems ask for; none for nothing to draw.
  [[nodiscard]] QIcon icon() const;

  /// Draws the picture as large as fits into the rectangle, its shape kept. A raster picture is not
  /// drawn larger than it is at that scale.
  void draw(QPainter& painter, const QRectF& rect, Qt::Alignment alignment, double scale = 1) const;

 private:
  static Picture fromSvg(const QByteArray& svg);

  std::shared_ptr<QSvgRenderer> vector_;
  QImage raster_;
};

}  // namespace tessara
