#pragma once

#include <optional>
#include <stdexcept>
#include <utility>

#include "words/HostTexts.h"

namespace tessara {

/// A word and what fills its places.
struct Phrase {
  Word word = Word::Count;
  QStringList arguments{};
};

/// A record could not be read or written: what was wrong with which file. The message of the
/// exception itself is English.
class RecordError : public std::runtime_error {
 public:
  /// With `kind`, that phrase fills the last place of the message.
  explicit RecordError(Phrase message, std::optional<Phrase> kind = std::nullopt)
      : std::runtime_error(said(HostTexts(), message, kind).toStdString()),
        message_(std::move(message)),
        kind_(std::move(kind)) {}

  /// The same in the language of the user.
  [[nodiscard]] QString text(const HostTexts& words) const { return said(words, message_, kind_); }

 private:
  static QString said(const HostTexts& words, const Phrase& message,
                      const std::optional<Phrase>& kind) {
    QStringList arguments = message.arguments;
    if (kind) {
      arguments += words(kind->word, kind->arguments);
    }
    return words(message.word, arguments);
  }

  Phrase message_;
  std::optional<Phrase> kind_;
};

}  // namespace tessara
