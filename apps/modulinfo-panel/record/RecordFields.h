#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <limits>

#include <nlohmann/json.hpp>

#include "record/RecordError.h"

namespace tessara {

using Json = nlohmann::ordered_json;

/// The JSON of a file, without what lies deeper in it than a record goes; a RecordError with line
/// and column for anything else.
Json parseRecord(const QByteArray& text, const QString& name);

/// The fields of one object of a record. Whoever asks for one that is missing or of another kind
/// gets a RecordError that names the file, the field with its path, its value and what it had to
/// be.
class RecordFields {
 public:
  /// The outermost object of the file `name`; both have to outlive the fields.
  RecordFields(const Json& json, const QString& name) : RecordFields(json, name, {}) {}

  [[nodiscard]] RecordFields object(const char* key) const;
  [[nodiscard]] QString text(const char* key) const;
  [[nodiscard]] bool truth(const char* key) const;
  /// A moment with its offset from UTC.
  [[nodiscard]] QDateTime time(const char* key) const;
  /// The place of the text among those of the choice.
  [[nodiscard]] std::size_t choice(const char* key, const QStringList& texts) const;
  template <typename Number>
  [[nodiscard]] Number number(const char* key,
                              std::int64_t low = std::numeric_limits<Number>::min(),
                              std::int64_t high = std::numeric_limits<Number>::max()) const {
    return static_cast<Number>(wholeNumber(key, low, high));
  }
  /// True for a field that is there and has no value.
  [[nodiscard]] bool isNull(const char* key) const { return at(key).is_null(); }
  /// True for a field that is there and holds that text; never throws.
  [[nodiscard]] bool holdsText(const char* key, const char* text) const;

  /// Throws the error, its first argument the name of the file.
  [[noreturn]] void fail(const char* message, const QStringList& arguments) const;

 private:
  RecordFields(const Json& json, const QString& name, QString path)
      : json_(json), name_(name), path_(std::move(path)) {}

  [[nodiscard]] const Json& at(const char* key) const;
  [[nodiscard]] std::int64_t wholeNumber(const char* key, std::int64_t low,
                                         std::int64_t high) const;
  [[noreturn]] void failKind(const char* key, const Phrase& kind) const;

  const Json& json_;
  const QString& name_;
  /// "module." in front of the keys of that object.
  QString path_;
};

}  // namespace tessara
