#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <stdexcept>

namespace tessara {

/// A message and the values for its places, that for %1 first.
struct Phrase {
  /// English; one of those in RecordMessages.h.
  const char* source = "";
  QStringList arguments{};
};

/// A record could not be read or written: what was wrong with which file. The message of the
/// exception itself is English.
class RecordError : public std::runtime_error {
 public:
  /// With `kind`, that phrase fills the last place of the message.
  explicit RecordError(const Phrase& message, const std::optional<Phrase>& kind = std::nullopt);

  /// The same in the language that was installed when the error was thrown.
  [[nodiscard]] const QString& text() const { return text_; }

 private:
  QString text_;
};

}  // namespace tessara
