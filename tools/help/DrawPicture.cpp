#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <iostream>

/// Help viewers do not show SVG, so the build draws the pictures of the help.
int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: modulinfo_draw_picture SVG PNG SIDE\n";
    return 2;
  }
  const int side = QByteArray(argv[3]).toInt();
  QSvgRenderer renderer(QString::fromLocal8Bit(argv[1]));
  QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  if (!renderer.isValid() || !painter.isActive()) {
    std::cerr << argv[1] << ": cannot be drawn " << argv[3] << " pixels wide\n";
    return 1;
  }
  renderer.render(&painter);
  painter.end();
  if (!image.save(QString::fromLocal8Bit(argv[2]), "PNG")) {
    std::cerr << argv[2] << " cannot be written\n";
    return 1;
  }
  return 0;
}
