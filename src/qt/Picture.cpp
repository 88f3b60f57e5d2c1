#include "qt/Picture.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <filesystem>

#include "base/RunTimeError.h"
#include "pictures/PictureFile.h"
#include "qt/PixelGrid.h"
#include "qt/QtText.h"

// Outside of the namespace, where the resource compiler has put what this names.
static void openPictures() {
  Q_INIT_RESOURCE(pictures);
}

namespace tessara {
namespace {

// The inks in which the button pictures are drawn in their files.
constexpr auto lineInFile = "#20303f";
constexpr auto accentInFile = "#0a66c2";

QByteArray readOwn(const QString& name) {
  openPictures();
  QFile file(":/tessara/" + name + ".svg");
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Hosts write paths with either separator.
QString pathOnDisk(QString path) {
  return path.replace('\\', '/');
}

/// Lowers the limit of what Qt allocates for one picture, which is that of the whole program, for
/// as long as this lives.
class AllocationLimit {
 public:
  AllocationLimit() { QImageReader::setAllocationLimit(maxMegabytes); }
  AllocationLimit(const AllocationLimit&) = delete;
  AllocationLimit& operator=(const AllocationLimit&) = delete;
  ~AllocationLimit() { QImageReader::setAllocationLimit(before_); }

 private:
  /// PictureFile::maxPixels at 4 bytes each.
  static constexpr int maxMegabytes = static_cast<int>(PictureFile::maxPixels * 4 >> 20U);

  int before_ = QImageReader::allocationLimit();
};

/// Decodes a raster picture. Returns what is wrong with it; nothing if it was decoded.
QString decode(PictureFormat format, const QByteArray& bytes, QImage& image) {
  QBuffer buffer;
  buffer.setData(bytes);
  QImageReader reader(&buffer, nameOf(format));
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (size.isValid() && !isDecodable(size.width(), size.height())) {
    return QString("it has more than %1 pixels").arg(PictureFile::maxPixels);
  }
  const AllocationLimit limit;
  return reader.read(&image) ? QString() : reader.errorString();
}

/// The picture of a file, or none if it holds none.
Picture fromFileIfAny(const QString& path) {
  try {
    return Picture::fromFile(path);
  } catch (const RunTimeError&) {
    return {};
  }
}

}  // namespace

Picture Picture::of(const PictureSource& source, const Inks& inks) {
  if (const auto* number = std::get_if<std::int32_t>(&source)) {
    return fromSvg(readOwn("states/" + QString::number(*number)));
  }
  const auto* text = std::get_if<std::u16string>(&source);
  if (text == nullptr || text->empty()) {
    return {};
  }
  QByteArray svg = readOwn("buttons/" + toQt(*text));
  if (!svg.isEmpty()) {
    svg.replace(lineInFile, inks.line.name().toLatin1());
    svg.replace(accentInFile, inks.accent.name().toLatin1());
    return fromSvg(svg);
  }
  const Picture own = fromSvg(readOwn(toQt(*text)));
  return own.isNull() ? fromFileIfAny(toQt(*text)) : own;
}

Picture Picture::application() {
  return fromSvg(readOwn("application"));
}

QIcon Picture::icon() const {
  QIcon icon;
  for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
    if (isNull()) {
      break;
    }
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    draw(painter, pixmap.rect(), Qt::AlignHCenter);
    painter.end();
    icon.addPixmap(pixmap);
  }
  return icon;
}

Picture Picture::fromFile(const QString& path) {
  const std::filesystem::path onDisk = pathOnDisk(path).toStdString();
  const PictureFile file = readPictureFile(onDisk);
  const auto bytes =
      QByteArray::fromRawData(file.bytes.data(), static_cast<qsizetype>(file.bytes.size()));
  if (file.format == PictureFormat::Svg) {
    Picture picture = fromSvg(bytes);
    if (picture.isNull()) {
      failPicture(onDisk, "its SVG cannot be read");
    }
    return picture;
  }
  Picture picture;
  const QString fault = decode(file.format, bytes, picture.raster_);
  if (!fault.isEmpty()) {
    failPicture(onDisk, fault.toStdString());
  }
  return picture;
}

Picture Picture::fromSvg(const QByteArray& svg) {
  Picture picture;
  auto renderer = std::make_shared<QSvgRenderer>();
  if (!svg.isEmpty() && renderer->load(svg)) {
    picture.vector_ = std::move(renderer);
  }
  return picture;
}

void Picture::draw(QPainter& painter, const QRectF& rect, Qt::Alignment alignment,
                   double scale) const {
  if (isNull()) {
    return;
  }
  const QSizeF own = vector_ ? vector_->viewBoxF().size() : QSizeF(raster_.size()) * scale;
  QSizeF size = own;
  if (vector_ || own.width() > rect.width() || own.height() > rect.height()) {
    size.scale(rect.size(), Qt::KeepAspectRatio);
  }
  QRectF target(rect.topLeft(), size);
  target.moveTop(rect.top() + (rect.height() - size.height()) / 2);
  if (alignment.testFlag(Qt::AlignRight)) {
    target.moveRight(rect.right());
  } else if (alignment.testFlag(Qt::AlignHCenter)) {
    target.moveLeft(rect.left() + (rect.width() - size.width()) / 2);
  }
  target = onPixels(painter, target);

  if (vector_) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    vector_->render(&painter, target);
    painter.restore();
    return;
  }
  const QSize pixels = painter.deviceTransform().mapRect(target).size().toSize();
  painter.drawImage(target,
                    raster_.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

}  // namespace tessara
