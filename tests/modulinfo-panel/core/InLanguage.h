#pragma once

#include <QCoreApplication>
#include <string>

#include "words/PanelLanguage.h"

namespace tessara::testing {

/// The state of a control whose language file has that extension; "dlg" is German.
inline LanguageState loadedFrom(const std::u16string& extension) {
  LanguageState state;
  state.LanguageFileExtension = extension;
  return state;
}

/// Translation and locale of a language, installed as long as the object lives.
class InLanguage {
 public:
  explicit InLanguage(const std::u16string& extension)
      : translator_(translatorFor(localeOf(loadedFrom(extension)))) {
    QLocale::setDefault(localeOf(loadedFrom(extension)));
    if (QCoreApplication::instance() == nullptr) {
      static int argc = 1;
      static char name[] = "test";
      static char* argv[] = {name, nullptr};
      static QCoreApplication application(argc, argv);
    }
    if (translator_) {
      QCoreApplication::installTranslator(translator_.get());
    }
  }
  ~InLanguage() { QLocale::setDefault(previous_); }
  InLanguage(const InLanguage&) = delete;
  InLanguage& operator=(const InLanguage&) = delete;

 private:
  QLocale previous_;
  std::unique_ptr<QTranslator> translator_;
};

}  // namespace tessara::testing
