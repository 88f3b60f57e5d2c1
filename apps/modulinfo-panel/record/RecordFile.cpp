#include "record/RecordFile.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

#include "record/RecordJson.h"
#include "record/RecordMessages.h"

namespace tessara {
namespace {

constexpr qint64 kilobyte = 1024;
/// A record takes two or three kilobytes; a film that was opened by mistake is not read whole.
constexpr qint64 maxBytes = 256 * kilobyte;

QString shown(const QString& path) {
  return QFileInfo(path).fileName();
}

}  // namespace

void replaceFile(const QString& path, const QByteArray& bytes) {
  QSaveFile file(path);
  const bool isWritten =
      file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
  if (!isWritten) {
    throw RecordError({record_message::unwritable, {path, file.errorString()}});
  }
}

void writeRecord(const ModuleRecord& record, const QString& path) {
  replaceFile(path, recordJson(record));
}

ModuleRecord readRecord(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    throw RecordError({record_message::unreadable, {path, file.errorString()}});
  }
  const QByteArray bytes = file.read(maxBytes + 1);
  if (file.error() != QFileDevice::NoError) {
    throw RecordError({record_message::unreadable, {path, file.errorString()}});
  }
  if (bytes.size() > maxBytes) {
    throw RecordError(
        {record_message::tooLarge, {shown(path), QString::number(maxBytes / kilobyte)}});
  }
  return recordFromJson(bytes, shown(path));
}

QString suggestedFileName(const ModuleRecord& record) {
  static const QRegularExpression awkward("[^\\w.]+",
                                          QRegularExpression::UseUnicodePropertiesOption);
  static const QRegularExpression edges("^[-.]+|[-.]+$");
  QString name = record.module.name + ' ' + record.module.serialNumber;
  name.replace(awkward, "-").remove(edges);
  return (name.isEmpty() ? QString("module") : name) + ".json";
}

}  // namespace tessara
