#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tessara {

/// Text on its way to Qt and back. Both sides count UTF-16 code units, so nothing changes.
inline QString toQt(std::u16string_view text) {
  return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::u16string fromQt(const QString& text) {
  return text.toStdU16String();
}

}  // namespace tessara
