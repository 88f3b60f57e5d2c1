#pragma once

#include <QFile>
#include <QString>
#include <QXmlStreamReader>
#include <map>
#include <stdexcept>
#include <utility>

namespace tessara::testing {

/// A word of `modulinfo-panel`: its translation context and its English text.
using PanelWord = std::pair<QString, QString>;

/// The words of `modulinfo-panel` and their translations, from a file for Qt Linguist.
inline std::map<PanelWord, QString> wordsOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    throw std::runtime_error(path.toStdString() + " cannot be read");
  }
  QXmlStreamReader xml(&file);
  std::map<PanelWord, QString> words;
  PanelWord word;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    if (xml.name() == u"name") word.first = xml.readElementText();
    if (xml.name() == u"source") word.second = xml.readElementText();
    if (xml.name() == u"translation") words[word] = xml.readElementText();
  }
  if (xml.hasError()) {
    throw std::runtime_error(path.toStdString() + ": " + xml.errorString().toStdString());
  }
  return words;
}

}  // namespace tessara::testing
