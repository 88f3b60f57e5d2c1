#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tessara {

/// Converts text to and from Qt. Both sides count UTF-16 code units, so nothing changes.
inline QString toQt(std::u16string_view text) {
  return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::u16string fromQt(const QString& text) {
  return text.toStdU16String();
}

/// A text of the model for display, without the padding of modules (zero bytes and blanks) and
/// without control characters.
inline QString readable(std::u16string_view text) {
  QString shown = toQt(text);
  shown.removeIf([](QChar sign) { return sign.category() == QChar::Other_Control; });
  while (shown.endsWith(' ')) {
    shown.chop(1);
  }
  return shown;
}

/// A text as the caption of a Qt button, in which a single ampersand would mark an access key.
inline QString withoutMnemonic(QString text) {
  return text.replace('&', "&&");
}

}  // namespace tessara
