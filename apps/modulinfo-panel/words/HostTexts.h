#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>
#include <cstdint>

#include "localisation/LanguageState.h"
#include "words/HostWords.h"

namespace tessara {

/// The words of this host in one language.
class HostTexts {
 public:
  /// The languages of the control, in the order of their numbers.
  enum class Language : std::uint8_t {
    German,
    English,
    French,
    Spanish,
    Italian,
    Portuguese,
    Turkish,
    Russian,
    Chinese,
    Polish,
    Japanese,
  };

  explicit HostTexts(Language language = Language::English) : language_(language) {}

  /// The words that go with the texts that the control shows: those of its language, German if it
  /// fell back on its own wording, English if none are loaded.
  static HostTexts beside(const LanguageState& state);

  [[nodiscard]] Language language() const { return language_; }
  /// How numbers and the names of months are written.
  [[nodiscard]] QLocale locale() const;

  [[nodiscard]] QString operator()(Word word) const;
  /// The word with its places filled in; each gets its argument as it stands.
  [[nodiscard]] QString operator()(Word word, const QStringList& arguments) const;

 private:
  Language language_;
};

}  // namespace tessara
