#pragma once

#include <QPagedPaintDevice>
#include <QTextDocument>
#include <memory>

#include "qt/Picture.h"
#include "record/RecordError.h"
#include "report/RecordHtml.h"

namespace tessara {

/// What a report is made from, whether it is shown, printed or written. Cheap to copy.
struct RecordSheet {
  ModuleRecord record;
  /// The texts of the control, which must outlive the sheet.
  const TextTables* texts = nullptr;
  /// The maker's logo, if there is one.
  Picture logo;
};

/// The page of the sheet as a document in these colours, in the font of the application. `ratio` is
/// the number of device pixels for each pixel of its pictures.
std::unique_ptr<QTextDocument> recordDocument(const RecordSheet& sheet, const RecordInk& ink,
                                              double ratio);

/// The margins of the page in millimetres.
QMarginsF reportMargins();

/// Draws the sheet on a page of that size in pixels of 1/96 inch, with a footer that names program,
/// module and page. A sheet that is too long for the page is scaled down.
void paintPage(const RecordSheet& sheet, QPainter& painter, const QSizeF& size);

/// Draws the sheet on one page of the device.
void paintReport(const RecordSheet& sheet, QPagedPaintDevice& device);

/// Writes the sheet as a PDF file of one A4 page, in one step. RecordError if that fails.
void writeReport(const RecordSheet& sheet, const QString& path);

}  // namespace tessara
