#pragma once

#include <QLocale>
#include <QString>
#include <QTranslator>
#include <memory>

#include "localisation/LanguageState.h"

namespace tessara {

/// The locale that goes with the texts that the control shows: that of its language file, German if
/// the control fell back on its own texts, English if none are loaded. It has no group separators.
QLocale localeOf(const LanguageState& state);

/// The translation of this program into the language of the locale, which is part of the program;
/// empty for English, the language of the sources. Throws std::runtime_error if there is none.
std::unique_ptr<QTranslator> translatorFor(const QLocale& locale);

/// What the program calls itself in the titles of its windows.
QString programTitle();

}  // namespace tessara
