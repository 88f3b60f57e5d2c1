#include "record/RecordFile.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>

#include "record/RecordJson.h"

namespace tessara {
namespace {

/// A record has two or three thousand bytes; whoever opens a film by mistake need not wait for it.
constexpr qint64 kilobyte = 1024;
constexpr qint64 largest = 256 * kilobyte;

QString shown(const QString& path) {
  return QFileInfo(path).fileName();
}

}  // namespace

void replaceFile(const QString& path, const QByteArray& bytes) {
  QSaveFile file(path);
  const bool isWritten =
      file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
  if (!isWritten) {
    throw RecordError({Word::FileUnwritable2, {path, file.errorString()}});
  }
}

void writeRecord(const ModuleRecord& record, const QString& path) {
  replaceFile(path, recordJson(record));
}

ModuleRecord readRecord(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    throw RecordError({Word::FileUnreadable2, {path, file.errorString()}});
  }
  const QByteArray bytes = file.read(largest + 1);
  if (file.error() != QFileDevice::NoError) {
    throw RecordError({Word::FileUnreadable2, {path, file.errorString()}});
  }
  if (bytes.size() > largest) {
    throw RecordError({Word::FileTooLarge2, {shown(path), QString::number(largest / kilobyte)}});
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
