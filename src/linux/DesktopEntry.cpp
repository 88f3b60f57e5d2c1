#include "linux/DesktopEntry.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTextStream>
#include <QUrl>

namespace tessara {
namespace {

constexpr auto entryGroup = "Desktop Entry";
/// What Debian calls the terminal of the user's choice.
constexpr auto terminal = "x-terminal-emulator";

/// The characters that a backslash stands for in any value.
QString unescaped(const QString& value) {
  const QHash<QChar, QChar> meanings{
      {'s', ' '}, {'n', '\n'}, {'t', '\t'}, {'r', '\r'}, {'\\', '\\'}};
  QString text;
  for (qsizetype at = 0; at < value.size(); ++at) {
    const bool isEscape = value[at] == '\\' && at + 1 < value.size();
    if (isEscape && meanings.contains(value[at + 1])) {
      text += meanings[value[++at]];
    } else {
      text += value[at];
    }
  }
  return text;
}

/// A word of a command line; field codes stand only outside of quotes.
struct Word {
  QString text;
  bool isQuoted = false;
};

/// The words of a command line; none if a quote is left open.
QList<Word> wordsOf(const QString& line) {
  QList<Word> words;
  bool inWord = false;
  bool inQuotes = false;
  for (qsizetype at = 0; at < line.size(); ++at) {
    const QChar sign = line[at];
    if (sign == ' ' && !inQuotes) {
      inWord = false;
      continue;
    }
    if (!inWord) {
      words.append(Word());
      inWord = true;
    }
    if (sign == '"') {
      inQuotes = !inQuotes;
      words.back().isQuoted = true;
    } else if (sign == '\\' && inQuotes && at + 1 < line.size()) {
      words.back().text += line[++at];
    } else {
      words.back().text += sign;
    }
  }
  return inQuotes ? QList<Word>() : words;
}

/// Puts what they stand for into the place of the field codes of a command line.
class FieldCodes {
 public:
  FieldCodes(const KeyFile& entry, const QString& path, const QString& target)
      : entry_(entry), path_(path), target_(target) {}

  [[nodiscard]] QStringList expanded(const QList<Word>& words) {
    QStringList arguments;
    for (const Word& word : words) {
      if (word.isQuoted) {
        arguments += word.text;
      } else if (word.text == "%i") {
        const QString icon = entry_.value(entryGroup, "Icon");
        arguments += icon.isEmpty() ? QStringList() : QStringList{"--icon", icon};
      } else {
        const QString text = expanded(word.text);
        arguments += text.isEmpty() ? QStringList() : QStringList(text);
      }
    }
    // A program that asks for no file is given it all the same: it was registered for files.
    return namesTarget_ ? arguments : arguments + QStringList(target_);
  }

 private:
  QString expanded(const QString& word) {
    QString text;
    for (qsizetype at = 0; at < word.size(); ++at) {
      text += word[at] == '%' && at + 1 < word.size() ? meaning(word[++at]) : word.mid(at, 1);
    }
    return text;
  }

  QString meaning(QChar code) {
    switch (code.unicode()) {
      case u'f':
      case u'F':
        namesTarget_ = true;
        return target_;
      case u'u':
      case u'U':
        namesTarget_ = true;
        return target_.startsWith('/')
                   ? QString::fromLatin1(QUrl::fromLocalFile(target_).toEncoded())
                   : target_;
      case u'c':
        return unescaped(entry_.value(entryGroup, "Name"));
      case u'k':
        return path_;
      case u'%':
        return "%";
      default:
        return {};
    }
  }

  const KeyFile& entry_;
  const QString& path_;
  const QString& target_;
  bool namesTarget_ = false;
};

bool isInstalled(const QString& program) {
  return !QStandardPaths::findExecutable(program).isEmpty();
}

}  // namespace

KeyFile::KeyFile(const QString& path) {
  QFile file(path);
  if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
    return;
  }
  QTextStream lines(&file);
  QString group;
  for (QString line; lines.readLineInto(&line);) {
    const qsizetype equals = line.indexOf('=');
    if (line.startsWith('[')) {
      group = line.mid(1, line.indexOf(']') - 1);
    } else if (!line.startsWith('#') && equals > 0) {
      groups_[group].insert(line.first(equals).trimmed(), line.sliced(equals + 1).trimmed());
    }
  }
}

QString KeyFile::value(const QString& group, const QString& key) const {
  return groups_.value(group).value(key);
}

QStringList KeyFile::list(const QString& group, const QString& key) const {
  return value(group, key).split(';', Qt::SkipEmptyParts);
}

std::optional<CommandLine> commandLineOf(const QString& path, const QString& target) {
  const KeyFile entry(path);
  const QString tried = unescaped(entry.value(entryGroup, "TryExec"));
  const QList<Word> exec = wordsOf(unescaped(entry.value(entryGroup, "Exec")));
  if (exec.isEmpty()) {
    return std::nullopt;
  }
  QStringList words = FieldCodes(entry, path, target).expanded(exec);
  if (entry.value(entryGroup, "Type") != "Application" ||
      entry.value(entryGroup, "Hidden") == "true" || (!tried.isEmpty() && !isInstalled(tried)) ||
      !isInstalled(words.front())) {
    return std::nullopt;
  }
  if (entry.value(entryGroup, "Terminal") == "true") {
    words = QStringList{terminal, "-e"} + words;
    if (!isInstalled(terminal)) {
      return std::nullopt;
    }
  }
  const QString program = words.takeFirst();
  return CommandLine{program, words, unescaped(entry.value(entryGroup, "Path"))};
}

}  // namespace tessara
