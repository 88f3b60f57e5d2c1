#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <iostream>

/// Viewers of help files know no SVG, so that its pictures are drawn while the help is being built.
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
    std::cerr << argv[1] << ": no picture that can be drawn " << argv[3] << " pixels wide\n";
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
