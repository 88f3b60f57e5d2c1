#include "QtTexts.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <array>

#include "qt/Look.h"
#include "words/HostTexts.h"

namespace tessara {
namespace {

/// Qt's translations, in the order of HostTexts::Language. Qt's own texts are English, and those in
/// Portuguese are there for Brazil alone.
constexpr std::array<const char*, 11> translations{
    "qtbase_de", "qtbase_en", "qtbase_fr",    "qtbase_es", "qtbase_it", "qtbase_pt_BR",
    "qtbase_tr", "qtbase_ru", "qtbase_zh_CN", "qtbase_pl", "qtbase_ja"};

}  // namespace

void speakLanguageOf(const LanguageState& state) {
  const auto language = HostTexts::beside(state).language();
  auto* translator = new QTranslator(QCoreApplication::instance());
  if (translator->load(translations.at(static_cast<std::size_t>(language)),
                       QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator);
  } else {
    delete translator;
  }
  if (const QFont font = fontOfLanguage(QApplication::font()); font != QApplication::font()) {
    QApplication::setFont(font);
  }
}

}  // namespace tessara
