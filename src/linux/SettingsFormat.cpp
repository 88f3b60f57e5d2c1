#include "linux/SettingsFormat.h"

#include <QFile>
#include <QIODevice>
#include <QStringDecoder>
#include <QStringList>
#include <QUrl>
#include <algorithm>
#include <map>
#include <stdexcept>

#include "base/RunTimeError.h"

namespace tessara {

namespace {

// A raw value is a list: the text behind the equals sign, then the comment lines above it.
// What stands behind the last value of the file is kept under a name that no value can have.
const QString closingComments = QStringLiteral("\uffff");
const QString generalGroup = QStringLiteral("General");

QString decodedName(const QString& name) {
  return QUrl::fromPercentEncoding(name.trimmed().toUtf8()).replace(u'\\', u'/');
}

/// Reads one file line by line into the map that QSettings works on.
class SettingsReader {
 public:
  explicit SettingsReader(QSettings::SettingsMap& values) : values_(values) {}

  /// Throws std::runtime_error at the first line that is none of an INI file.
  void read(QIODevice& device) {
    const QByteArray bytes = device.readAll();
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(bytes);
    int number = 0;
    for (const QString& line : text.split(u'\n')) {
      ++number;
      const QString problem = take(line.trimmed());
      if (!problem.isEmpty()) {
        throw std::runtime_error("line " + std::to_string(number) + ": " + problem.toStdString());
      }
    }
    if (!comments_.isEmpty()) {
      values_[closingComments] = QStringList(QString()) + comments_;
    }
  }

 private:
  /// Gives what is wrong with the line; nothing if it is well-formed.
  QString take(const QString& line) {
    if (line.contains(QChar::Null) || line.contains(QChar::ReplacementCharacter)) {
      return QStringLiteral("this is no text in UTF-8");
    }
    if (line.isEmpty()) return {};
    if (line.startsWith(u';') || line.startsWith(u'#')) {
      comments_ << line;
      return {};
    }
    return line.startsWith(u'[') ? takeGroup(line) : takeValue(line);
  }

  QString takeGroup(const QString& line) {
    if (!line.endsWith(u']')) {
      return u'"' + line + QStringLiteral("\" opens a group and does not close it with ]");
    }
    group_ = decodedName(line.mid(1, line.size() - 2));
    return group_.isEmpty() ? QStringLiteral("a group without a name") : QString();
  }

  QString takeValue(const QString& line) {
    const auto equals = line.indexOf(u'=');
    if (equals < 1) {
      return u'"' + line + QStringLiteral("\" is neither [group] nor name=value");
    }
    const QString name = decodedName(line.left(equals));
    const QString prefix = group_.isEmpty() || group_ == generalGroup ? QString() : group_ + u'/';
    values_[prefix + name] = QStringList(line.mid(equals + 1).trimmed()) + comments_;
    comments_.clear();
    return {};
  }

  QSettings::SettingsMap& values_;
  QString group_;
  QStringList comments_;
};

bool readSettings(QIODevice& device, QSettings::SettingsMap& values) {
  try {
    SettingsReader(values).read(device);
    return true;
  } catch (const std::runtime_error&) {
    return false;
  }
}

QByteArray encodedName(const QString& name) {
  return QUrl::toPercentEncoding(name, "/").replace('/', '\\');
}

QByteArray linesOf(const QString& name, const QStringList& raw) {
  QByteArray lines;
  for (const QString& comment : raw.mid(1)) {
    lines += comment.toUtf8() + '\n';
  }
  return lines +
         (name == closingComments ? "" : encodedName(name) + '=' + raw.first().toUtf8() + '\n');
}

/// Writes all bytes, or says that it could not. Qt itself takes the part that a full disk had room
/// for as the whole.
bool writeWhole(QIODevice& device, const QByteArray& bytes) {
  auto* file = qobject_cast<QFileDevice*>(&device);
  return device.write(bytes) == bytes.size() && file != nullptr && file->flush() &&
         file->size() == bytes.size();
}

bool writeSettings(QIODevice& device, const QSettings::SettingsMap& values) {
  std::map<QString, QByteArray> groups;
  QByteArray closing;
  for (auto value = values.begin(); value != values.end(); ++value) {
    const QString& key = value.key();
    const auto slash = key.indexOf(u'/');
    QByteArray& lines =
        key == closingComments ? closing : groups[slash < 0 ? generalGroup : key.left(slash)];
    lines += linesOf(key.mid(slash + 1), value.value().toStringList());
  }
  QByteArray file;
  for (const auto& [group, lines] : groups) {
    file += (file.isEmpty() ? "[" : "\n[") + encodedName(group) + "]\n" + lines;
  }
  file += closing;
  return writeWhole(device, file);
}

/// Takes quotation marks, doubled signs and a comment at the end away from a raw value.
QString plainText(const QString& raw) {
  QString text;
  bool quoted = false;
  qsizetype settled = 0;  // up to here blanks at the end belong to the text
  for (qsizetype i = 0; i < raw.size(); ++i) {
    const QChar sign = raw[i];
    const QChar next = i + 1 < raw.size() ? raw[i + 1] : QChar();
    if (sign == u'\\' && (next == u'\\' || next == u'"')) {
      text += next;
      ++i;
    } else if (sign == u'"') {
      quoted = !quoted;
      settled = text.size();
    } else if (sign == u';' && !quoted) {
      break;
    } else {
      text += sign;
    }
  }
  if (quoted) {
    throw RunTimeError(ErrorNumber::InvalidCall,
                       raw.toStdString() + " opens a quotation mark and does not close it");
  }
  while (text.size() > settled && text.back().isSpace()) text.chop(1);
  return text;
}

}  // namespace

QSettings::Format settingsFormat() {
  static const QSettings::Format format =
      QSettings::registerFormat(QStringLiteral("ini"), readSettings, writeSettings);
  return format;
}

std::string settingsFault(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return file.errorString().toStdString();
  QSettings::SettingsMap values;
  try {
    SettingsReader(values).read(file);
    return {};
  } catch (const std::runtime_error& fault) {
    return fault.what();
  }
}

QString decodeValue(const QVariant& raw) {
  QString text = plainText(raw.toStringList().value(0));
  if (text.startsWith(u'@') && !text.startsWith(QStringLiteral("@@"))) {
    throw RunTimeError(ErrorNumber::InvalidCall,
                       '"' + text.toStdString() + "\" is neither a text nor a number");
  }
  return text.startsWith(u'@') ? text.mid(1) : text;
}

QVariant encodeValue(const QString& text, const QVariant& replaced) {
  const auto isControl = [](QChar sign) { return sign.category() == QChar::Other_Control; };
  if (std::any_of(text.begin(), text.end(), isControl)) {
    throw RunTimeError(ErrorNumber::InvalidCall,
                       "a setting is one line of text without control characters");
  }
  QString raw = text;
  raw.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
  if (raw.startsWith(u'@')) raw.prepend(u'@');
  const bool plain = raw == raw.trimmed() && std::none_of(raw.begin(), raw.end(), [](QChar sign) {
                       return QStringLiteral(";,=\"").contains(sign);
                     });
  if (!plain) raw = u'"' + raw + u'"';
  return QStringList(raw) + replaced.toStringList().mid(1);
}

}  // namespace tessara
