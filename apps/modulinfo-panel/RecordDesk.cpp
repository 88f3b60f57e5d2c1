#include "RecordDesk.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPageLayout>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QRegularExpression>

#include "record/RecordFile.h"
#include "record/RecordRows.h"

namespace tessara {
namespace {

constexpr auto recordSuffix = "json";
constexpr auto pdfSuffix = "pdf";
/// How large the preview comes up, in heights of a line; all of its tools are to be seen.
constexpr QSize previewLines{60, 52};

QString withSuffix(const QString& file, const char* suffix) {
  const QFileInfo info(file);
  return info.completeBaseName() + '.' + suffix;
}

}  // namespace

QString plainTitle(const QString& text) {
  static const QRegularExpression accessKey("\\(&.\\)");
  QString title = text;
  return title.remove(accessKey).remove('&').remove(QChar(0x2026)).trimmed();
}

RecordDesk::RecordDesk(QWidget& window, HostSettings& settings,
                       std::function<void(const QString&)> tell)
    : window_(window), settings_(settings), tell_(std::move(tell)) {}

void RecordDesk::guard(const std::function<void()>& task) {
  QString failure;
  try {
    task();
    return;
  } catch (const RecordError& error) {
    failure = error.text(words_);
  } catch (const std::exception& error) {
    failure = QString::fromUtf8(error.what());
  }
  QMessageBox box(QMessageBox::Warning, words_(Word::Title), failure, QMessageBox::Ok, &window_);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

QString RecordDesk::askForFile(const QString& title, const QString& suggested,
                               const QString& filter, const QString& suffix) {
  QFileDialog dialog(&window_, title, settings_.folder(), filter);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(suffix);
  dialog.selectFile(suggested);
  if (dialog.exec() != QDialog::Accepted) {
    return {};
  }
  return chosenIn(dialog);
}

QString RecordDesk::chosenIn(const QFileDialog& dialog) {
  QString path = dialog.selectedFiles().value(0);
  settings_.keepFolder(QFileInfo(path).absolutePath());
  return path;
}

void RecordDesk::wrote(const QString& path) {
  tell_(words_(Word::SavedAs1, {QDir::toNativeSeparators(path)}));
}

void RecordDesk::save(const ModuleRecord& record) {
  const QString path = askForFile(plainTitle(words_(Word::SaveRecord)), suggestedFileName(record),
                                  words_(Word::RecordFiles), recordSuffix);
  if (!path.isEmpty()) {
    guard([&] {
      writeRecord(record, path);
      wrote(path);
    });
  }
}

void RecordDesk::savePdf(const RecordSheet& sheet) {
  const QString path = askForFile(plainTitle(words_(Word::SavePdf)),
                                  withSuffix(suggestedFileName(sheet.record), pdfSuffix),
                                  words_(Word::PdfFiles), pdfSuffix);
  if (!path.isEmpty()) {
    guard([&] {
      writeReport(sheet, path);
      wrote(path);
    });
  }
}

void RecordDesk::print(const RecordSheet& sheet) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(withSuffix(suggestedFileName(sheet.record), pdfSuffix));
  printer.setPageMargins(reportMargins(), QPageLayout::Millimeter);
  QPrintPreviewDialog preview(&printer, &window_);
  preview.resize(previewLines * window_.fontMetrics().lineSpacing());
  preview.setWindowTitle(
      words_(Word::Captioned2, {plainTitle(words_(Word::PrintRecord)), sheet.record.module.name}));
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &window_,
                   [&sheet](QPrinter* target) { paintReport(sheet, *target); });
  preview.exec();
}

void RecordDesk::copy(const RecordSheet& sheet) {
  QGuiApplication::clipboard()->setText(recordText(sheet.record, *sheet.texts, sheet.words));
  tell_(words_(Word::CopiedText));
}

std::optional<RecordDesk::Opened> RecordDesk::open() {
  QFileDialog dialog(&window_, plainTitle(words_(Word::OpenRecord)), settings_.folder(),
                     words_(Word::RecordFiles));
  dialog.setFileMode(QFileDialog::ExistingFile);
  if (dialog.exec() != QDialog::Accepted) {
    return std::nullopt;
  }
  const QString path = chosenIn(dialog);
  std::optional<Opened> opened;
  guard([&] { opened = Opened{readRecord(path), path}; });
  return opened;
}

}  // namespace tessara
