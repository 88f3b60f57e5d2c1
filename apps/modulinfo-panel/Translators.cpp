#include "Translators.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>

#include "qt/Look.h"
#include "words/PanelLanguage.h"

namespace tessara {
namespace {

/// Qt is translated into Portuguese for Brazil only.
QLocale localeOfQt(const QLocale& locale) {
  return locale.language() == QLocale::Portuguese ? QLocale("pt_BR") : locale;
}

std::unique_ptr<QTranslator> translatorOfQt(const QLocale& locale) {
  auto translator = std::make_unique<QTranslator>();
  const bool isInstalled = translator->load(localeOfQt(locale), "qtbase", "_",
                                            QLibraryInfo::path(QLibraryInfo::TranslationsPath));
  return isInstalled ? std::move(translator) : nullptr;
}

/// Installs the translator in place of the one of the same name.
void replaceTranslator(const QString& name, std::unique_ptr<QTranslator> translator) {
  QCoreApplication* application = QCoreApplication::instance();
  delete application->findChild<QTranslator*>(name);
  if (translator) {
    translator->setObjectName(name);
    translator->setParent(application);
    QCoreApplication::installTranslator(translator.release());
  }
}

}  // namespace

void installTranslator(const LanguageState& state) {
  const QLocale locale = localeOf(state);
  QLocale::setDefault(locale);
  replaceTranslator("qtbase", translatorOfQt(locale));
  replaceTranslator("modulinfo-panel", translatorFor(locale));
  if (const QFont font = fontOfLanguage(QApplication::font()); font != QApplication::font()) {
    QApplication::setFont(font);
  }
}

}  // namespace tessara
