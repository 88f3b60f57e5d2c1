#include "report/RecordReport.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFontInfo>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>

#include "record/RecordFile.h"
#include "record/RecordWords.h"

namespace tessara {
namespace {

/// The page is laid out in pixels of 1/96 inch on every device.
constexpr double pixelsPerInch = 96;
constexpr double marginMillimetres = 15;
/// The pictures of a printed page, in dots for each such pixel.
constexpr double printRatio = 8;
constexpr int logoHeight = 48;
constexpr int logoWidth = 200;
constexpr int footPixels = 11;
constexpr int footHeight = 28;
/// The factor by which a page that is too long is scaled down at a time.
constexpr double shrink = 0.95;

QImage drawn(const Picture& picture, const QSize& size, Qt::Alignment alignment, double ratio) {
  QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(ratio);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  picture.draw(painter, QRectF(QPointF(), size), alignment);
  return image;
}

/// A font of that many pixels that is laid out the same on every device.
QFont pageFont(int pixels) {
  QFont font = QGuiApplication::font();
  font.setPixelSize(pixels);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

void drawPage(QPainter& painter, QTextDocument& page, const QColor& text) {
  QAbstractTextDocumentLayout::PaintContext context;
  context.palette.setColor(QPalette::Text, text);
  page.documentLayout()->draw(&painter, context);
}

void drawFoot(QPainter& painter, const QRectF& foot, const RecordSheet& sheet,
              const RecordInk& ink) {
  const auto& [vendor, group, family, device, name, description, firmware, serial] =
      sheet.record.module;
  painter.setFont(pageFont(footPixels));
  painter.setPen(QPen(ink.caption, 0.5));
  painter.drawLine(foot.topLeft(), foot.topRight());
  const QRectF line = foot.adjusted(0, footPixels / 2.0, 0, 0);
  const QString page = RecordWords::tr("Page %1 of %2").arg(1).arg(1);
  const double taken = QFontMetricsF(painter.font()).horizontalAdvance(page) + footPixels;
  QStringList parts{name, serial, sheet.record.program};
  parts.removeAll(QString());
  const QString left = parts.join(" · ");
  painter.drawText(line, Qt::AlignRight | Qt::AlignTop, page);
  painter.drawText(
      line, Qt::AlignLeft | Qt::AlignTop,
      QFontMetricsF(painter.font()).elidedText(left, Qt::ElideMiddle, line.width() - taken));
}

}  // namespace

std::unique_ptr<QTextDocument> recordDocument(const RecordSheet& sheet, const RecordInk& ink,
                                              double ratio) {
  auto document = std::make_unique<QTextDocument>();
  document->setDefaultFont(pageFont(ink.pixels));
  document->setUndoRedoEnabled(false);
  document->setDocumentMargin(0);
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  document->setDefaultTextOption(option);

  RecordPictures pictures;
  if (sheet.record.status.picture) {
    const int side = 3 * ink.pixels;
    pictures.hasState = true;
    document->addResource(QTextDocument::ImageResource, QUrl(statePictureName),
                          drawn(Picture::of(*sheet.record.status.picture, {}), {side, side},
                                Qt::AlignHCenter, ratio));
  }
  if (!sheet.logo.isNull()) {
    pictures.logo = {logoWidth, logoHeight};
    document->addResource(QTextDocument::ImageResource, QUrl(logoPictureName),
                          drawn(sheet.logo, pictures.logo, Qt::AlignRight, ratio));
  }
  document->setHtml(recordHtml(sheet.record, *sheet.texts, ink, pictures));
  return document;
}

QMarginsF reportMargins() {
  return {marginMillimetres, marginMillimetres, marginMillimetres, marginMillimetres};
}

void paintPage(const RecordSheet& sheet, QPainter& painter, const QSizeF& size) {
  painter.setRenderHint(QPainter::Antialiasing);
  const double room = size.height() - footHeight;
  const RecordInk ink = RecordInk::paper();
  const auto document = recordDocument(sheet, ink, printRatio);
  double scale = 1;
  document->setTextWidth(size.width());
  while (document->size().height() * scale > room) {
    scale *= shrink;
    document->setTextWidth(size.width() / scale);
  }
  painter.save();
  painter.scale(scale, scale);
  drawPage(painter, *document, ink.text);
  painter.restore();
  drawFoot(painter, {0, room, size.width(), footHeight}, sheet, ink);
}

void paintReport(const RecordSheet& sheet, QPagedPaintDevice& device) {
  QPainter painter(&device);
  const double scale = device.logicalDpiX() / pixelsPerInch;
  painter.scale(scale, scale);
  paintPage(sheet, painter, QSizeF(device.width(), device.height()) / scale);
}

void writeReport(const RecordSheet& sheet, const QString& path) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(reportMargins(), QPageLayout::Millimeter);
    writer.setTitle(RecordWords::tr("Module record") + " " + sheet.record.module.name);
    writer.setCreator(sheet.record.program);
    paintReport(sheet, writer);
  }
  replaceFile(path, buffer.data());
}

}  // namespace tessara
