#include "record/RecordError.h"

#include <QCoreApplication>

namespace tessara {
namespace {

using Translate = QString (*)(const char* source);

QString inEnglish(const char* source) {
  return QString::fromUtf8(source);
}

QString inLanguageOfUser(const char* source) {
  return QCoreApplication::translate("RecordError", source);
}

/// The text with its places filled in; an argument may contain a percent sign and a digit itself.
QString filled(const QString& text, const QStringList& arguments) {
  QString filled;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const int place = text[i] == '%' && i + 1 < text.size() ? text[i + 1].digitValue() : -1;
    if (place >= 1 && place <= arguments.size()) {
      filled += arguments[place - 1];
      ++i;
    } else {
      filled += text[i];
    }
  }
  return filled;
}

QString messageText(const Phrase& message, const std::optional<Phrase>& kind, Translate translate) {
  QStringList arguments = message.arguments;
  if (kind) {
    arguments += filled(translate(kind->source), kind->arguments);
  }
  return filled(translate(message.source), arguments);
}

}  // namespace

RecordError::RecordError(const Phrase& message, const std::optional<Phrase>& kind)
    : std::runtime_error(messageText(message, kind, inEnglish).toStdString()),
      text_(messageText(message, kind, inLanguageOfUser)) {}

}  // namespace tessara
