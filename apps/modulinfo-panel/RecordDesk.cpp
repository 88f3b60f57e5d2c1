#include "RecordDesk.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPageLayout>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include "record/RecordFile.h"
#include "record/RecordRows.h"
#include "record/RecordWords.h"
#include "words/PanelLanguage.h"

namespace tessara {
namespace {

constexpr auto recordSuffix = "json";
constexpr auto pdfSuffix = "pdf";
/// The initial size of the preview in line heights, wide enough for its whole tool bar.
constexpr QSize previewLines{60, 52};

QString withSuffix(const QString& file, const char* suffix) {
  const QFileInfo info(file);
  return info.completeBaseName() + '.' + suffix;
}

QString recordFilter() {
  return RecordDesk::tr("Module records (*.json)");
}

}  // namespace

RecordDesk::RecordDesk(QWidget& window, HostSettings& settings,
                       std::function<void(const QString&)> tell)
    : window_(window), settings_(settings), tell_(std::move(tell)) {}

void RecordDesk::guard(const std::function<void()>& task) {
  QString failure;
  try {
    task();
    return;
  } catch (const RecordError& error) {
    failure = error.text();
  } catch (const std::exception& error) {
    failure = QString::fromUtf8(error.what());
  }
  QMessageBox box(QMessageBox::Warning, programTitle(), failure, QMessageBox::Ok, &window_);
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

void RecordDesk::tellSaved(const QString& path) {
  //: %1: a file
  tell_(tr("Saved as %1").arg(QDir::toNativeSeparators(path)));
}

void RecordDesk::tellCopied() {
  tell_(tr("Copied as text"));
}

void RecordDesk::save(const ModuleRecord& record) {
  const QString path =
      askForFile(tr("Save record"), suggestedFileName(record), recordFilter(), recordSuffix);
  if (!path.isEmpty()) {
    guard([&] {
      writeRecord(record, path);
      tellSaved(path);
    });
  }
}

void RecordDesk::savePdf(const RecordSheet& sheet) {
  const QString path =
      askForFile(tr("Save as PDF"), withSuffix(suggestedFileName(sheet.record), pdfSuffix),
                 tr("PDF files (*.pdf)"), pdfSuffix);
  if (!path.isEmpty()) {
    guard([&] {
      writeReport(sheet, path);
      tellSaved(path);
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
      //: Title of the preview; %1: the name of the module
      tr("Print: %1").arg(sheet.record.module.name));
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &window_,
                   [&sheet](QPrinter* target) { paintReport(sheet, *target); });
  preview.exec();
}

void RecordDesk::copy(const RecordSheet& sheet) {
  QGuiApplication::clipboard()->setText(recordText(sheet.record, *sheet.texts));
  tellCopied();
}

std::optional<RecordDesk::Opened> RecordDesk::open() {
  QFileDialog dialog(&window_, tr("Open record"), settings_.folder(), recordFilter());
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
