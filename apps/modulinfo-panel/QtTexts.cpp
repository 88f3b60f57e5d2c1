#include "QtTexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <algorithm>
#include <array>

namespace tessara {
namespace {

struct Translation {
  /// The first letter of the language file's extension.
  char16_t letter;
  const char* file;
};

// Qt's own texts are English.
constexpr std::array<Translation, 10> translations{{{u'd', "qtbase_de"},
                                                    {u'f', "qtbase_fr"},
                                                    {u's', "qtbase_es"},
                                                    {u'i', "qtbase_it"},
                                                    {u'p', "qtbase_pt_BR"},
                                                    {u't', "qtbase_tr"},
                                                    {u'r', "qtbase_ru"},
                                                    {u'c', "qtbase_zh_CN"},
                                                    {u'z', "qtbase_pl"},
                                                    {u'j', "qtbase_ja"}}};

/// The letter of the language that the control has fallen back on.
constexpr char16_t ownWording = u'd';

}  // namespace

void speakLanguageOf(const LanguageState& state) {
  const char16_t letter = state.LanguageFileError               ? ownWording
                          : state.LanguageFileExtension.empty() ? u'e'
                                                                : state.LanguageFileExtension[0];
  const auto* found = std::find_if(translations.begin(), translations.end(),
                                   [&](const Translation& row) { return row.letter == letter; });
  if (found == translations.end()) {
    return;
  }
  auto* translator = new QTranslator(QCoreApplication::instance());
  if (translator->load(found->file, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator);
  } else {
    delete translator;
  }
}

}  // namespace tessara
