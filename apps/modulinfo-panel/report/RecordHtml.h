#pragma once

#include <QColor>
#include <QSize>
#include <QString>

#include "localisation/TextTables.h"
#include "record/ModuleRecord.h"

namespace tessara {

/// How the tables of a record look: on paper, or in the colours of a window.
struct RecordInk {
  QColor text;
  QColor caption;
  /// The background of headings.
  QColor ground;
  /// The colour of links.
  QColor link;
  /// The height of the values in pixels; everything else follows it.
  int pixels = 13;

  static RecordInk paper();
};

/// The names of the pictures in the page.
inline constexpr const char* statePictureName = "state";
inline constexpr const char* logoPictureName = "logo";

/// The pictures available for the page.
struct RecordPictures {
  bool hasState = false;
  /// The size of the logo; empty for none.
  QSize logo;
};

/// The record as a page of HTML for a QTextDocument: a title with the module's name, then its
/// tables.
QString recordHtml(const ModuleRecord& record, const TextTables& texts, const RecordInk& ink,
                   const RecordPictures& pictures);

}  // namespace tessara
