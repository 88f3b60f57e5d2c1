#include "report/RecordHtml.h"

#include <algorithm>

#include "record/RecordRows.h"
#include "record/RecordWords.h"

namespace tessara {
namespace {

/// The width of the caption column, in text heights.
constexpr int captionWidth = 15;

bool isLink(const QString& value) {
  return value.startsWith("https://") || value.startsWith("http://");
}

/// Status texts are joined by arrows of two characters, which must stay on one line.
constexpr auto arrow = "-&gt;";
constexpr auto wholeArrow = "-&#8288;&gt;";

QString valueHtml(const QString& value, const RecordInk& ink) {
  const QString text = value.toHtmlEscaped().replace('\'', "&#39;").replace(arrow, wholeArrow);
  return isLink(value) ? QString("<a href='%1' style='color:%2; text-decoration:none'>%1</a>")
                             .arg(text, ink.link.name())
                       : text;
}

QString headingHtml(const QString& title, const RecordInk& ink) {
  return QString(
             "<table width='100%' cellspacing='0' cellpadding='4' "
             "style='margin-top:%1px'><tr><td bgcolor='%2' style='font-weight:600'>%3</td>"
             "</tr></table>")
      .arg(QString::number(ink.pixels), ink.ground.name(), title.toHtmlEscaped());
}

QString rowsHtml(const std::vector<RecordRow>& rows, const RecordInk& ink) {
  QString html = "<table width='100%' cellspacing='0' cellpadding='4'>";
  for (const RecordRow& row : rows) {
    html += QString("<tr><td width='%1' style='color:%2'>%3</td><td>%4</td></tr>")
                .arg(QString::number(captionWidth * ink.pixels), ink.caption.name(),
                     row.caption.toHtmlEscaped(), valueHtml(row.value, ink));
  }
  return html + "</table>";
}

/// Short numbers, side by side: the caption over the value.
QString columnsHtml(const std::vector<RecordRow>& rows, const RecordInk& ink) {
  QString captions;
  QString values;
  const int width = 100 / std::max(1, static_cast<int>(rows.size()));
  for (const RecordRow& row : rows) {
    captions += QString("<td width='%1%' style='color:%2'>%3</td>")
                    .arg(QString::number(width), ink.caption.name(), row.caption.toHtmlEscaped());
    values += "<td>" + row.value.toHtmlEscaped() + "</td>";
  }
  return "<table width='100%' cellspacing='0' cellpadding='4'><tr>" + captions + "</tr><tr>" +
         values + "</tr></table>";
}

/// The rows of the status with the picture of the state at their right.
QString statusHtml(const std::vector<RecordRow>& rows, const RecordInk& ink) {
  const int side = 3 * ink.pixels;
  return QString(
             "<table width='100%' cellspacing='0' cellpadding='0'><tr><td>%1</td>"
             "<td width='%2' align='right' style='padding:%3px'>"
             "<img src='%4' width='%5' height='%5'></td></tr></table>")
      .arg(rowsHtml(rows, ink), QString::number(side + ink.pixels), QString::number(ink.pixels / 2),
           statePictureName, QString::number(side));
}

QString titleHtml(const ModuleRecord& record, const RecordInk& ink, const QSize& logo) {
  const QString mark = logo.isEmpty()
                           ? QString()
                           : QString("<td align='right'><img src='%1' width='%2' height='%3'></td>")
                                 .arg(logoPictureName, QString::number(logo.width()),
                                      QString::number(logo.height()));
  const auto line = [&](int pixels, const QString& style, const QString& text) {
    return QString("<p style='margin:0 0 %1px 0; font-size:%2px; %3'>%4</p>")
        .arg(QString::number(ink.pixels / 3), QString::number(pixels), style, text.toHtmlEscaped());
  };
  return "<table width='100%' cellspacing='0' cellpadding='0'><tr><td>" +
         line(ink.pixels * 2, "font-weight:600", RecordWords::tr("Module record")) +
         line(ink.pixels * 4 / 3, {}, record.module.name) +
         line(ink.pixels, "color:" + ink.caption.name(),
              //: A caption and its value
              RecordWords::tr("%1: %2").arg(RecordWords::tr("Recorded"), recordTime(record))) +
         "</td>" + mark + "</tr></table>";
}

}  // namespace

RecordInk RecordInk::paper() {
  RecordInk ink;
  ink.text = QColor(0x14, 0x18, 0x1c);
  ink.caption = QColor(0x55, 0x5f, 0x69);
  ink.ground = QColor(0xe9, 0xee, 0xf3);
  ink.link = QColor(0x0a, 0x57, 0xa8);
  return ink;
}

QString recordHtml(const ModuleRecord& record, const TextTables& texts, const RecordInk& ink,
                   const RecordPictures& pictures) {
  QString html = QString("<body style='color:%1; font-size:%2px'>")
                     .arg(ink.text.name(), QString::number(ink.pixels));
  html += titleHtml(record, ink, pictures.logo);
  for (const RecordSection& section : recordSections(record, texts)) {
    html += headingHtml(section.title, ink);
    if (section.part == RecordPart::Identification) {
      html += columnsHtml(section.rows, ink);
    } else if (section.part == RecordPart::Status && pictures.hasState) {
      html += statusHtml(section.rows, ink);
    } else {
      html += rowsHtml(section.rows, ink);
    }
  }
  return html + "</body>";
}

}  // namespace tessara
