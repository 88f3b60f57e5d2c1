#include "record/RecordFields.h"

#include <algorithm>
#include <string>

#include "record/RecordMessages.h"

namespace tessara {
namespace {

/// How much of a wrong value a message shows.
constexpr qsizetype shownValue = 40;

/// Far deeper than the fields of a record lie in one another. Showing a wrong value goes down into
/// it.
constexpr int deepest = 16;

QString shortened(const QString& value) {
  return value.size() > shownValue ? value.first(shownValue) + "…" : value;
}

/// What the parser found, without the names of its own classes and places in front.
QString causeIn(const std::string& what) {
  const QString message = QString::fromStdString(what);
  constexpr QStringView marker = u"; last read";
  const QString cause = message.section(" - ", 1);
  return cause.isEmpty() ? message.section(": ", -1) : cause.section(marker.toString(), 0, 0);
}

struct LineAndColumn {
  qsizetype line = 1;
  qsizetype column = 1;
};

/// Where a byte of the text stands, both counted from 1.
LineAndColumn placeOf(const QByteArray& text, std::size_t byte) {
  const auto front = text.first(std::min(text.size(), static_cast<qsizetype>(byte)));
  return {front.count('\n') + 1,
          std::max<qsizetype>(1, front.size() - front.lastIndexOf('\n') - 1)};
}

RecordError noJson(const QString& name, const LineAndColumn& place, const QString& cause) {
  return RecordError({record_message::invalidJson,
                      {name, QString::number(place.line), QString::number(place.column), cause}});
}

}  // namespace

Json parseRecord(const QByteArray& text, const QString& name) {
  try {
    return Json::parse(text.begin(), text.end(), [](int depth, Json::parse_event_t, const Json&) {
      return depth <= deepest;
    });
  } catch (const Json::parse_error& error) {
    throw noJson(name, placeOf(text, error.byte), causeIn(error.what()));
  } catch (const Json::out_of_range& error) {
    // A number that no type holds. The parser tells which one it is, and not where.
    const QString number = QString::fromStdString(error.what()).section('\'', 1, 1);
    const auto before = static_cast<std::size_t>(text.indexOf(number.toUtf8()));
    throw noJson(name, placeOf(text, before + 1), "number overflow: " + shortened(number));
  }
}

void RecordFields::fail(const char* message, const QStringList& arguments) const {
  throw RecordError({message, QStringList{name_} + arguments});
}

void RecordFields::failKind(const char* key, const Phrase& kind) const {
  const QString value =
      QString::fromStdString(at(key).dump(-1, ' ', false, Json::error_handler_t::replace));
  throw RecordError({record_message::fieldWrong, {name_, path_ + key, shortened(value)}}, kind);
}

const Json& RecordFields::at(const char* key) const {
  const auto found = json_.is_object() ? json_.find(key) : json_.end();
  if (found == json_.end()) {
    fail(record_message::fieldMissing, {path_ + key});
  }
  return *found;
}

bool RecordFields::holdsText(const char* key, const char* text) const {
  const auto found = json_.is_object() ? json_.find(key) : json_.end();
  return found != json_.end() && *found == text;
}

RecordFields RecordFields::object(const char* key) const {
  if (!at(key).is_object()) {
    failKind(key, {record_kind::object});
  }
  return {at(key), name_, path_ + key + '.'};
}

QString RecordFields::text(const char* key) const {
  if (!at(key).is_string()) {
    failKind(key, {record_kind::text});
  }
  return QString::fromStdString(at(key).get_ref<const std::string&>());
}

bool RecordFields::truth(const char* key) const {
  if (!at(key).is_boolean()) {
    failKind(key, {record_kind::truth});
  }
  return at(key).get<bool>();
}

QDateTime RecordFields::time(const char* key) const {
  QDateTime time =
      at(key).is_string() ? QDateTime::fromString(text(key), Qt::ISODate) : QDateTime();
  if (!time.isValid()) {
    failKind(key, {record_kind::time});
  }
  return time;
}

std::size_t RecordFields::choice(const char* key, const QStringList& texts) const {
  const qsizetype place = at(key).is_string() ? texts.indexOf(text(key)) : -1;
  if (place < 0) {
    failKind(key, {record_kind::oneOf, {texts.join(", ")}});
  }
  return static_cast<std::size_t>(place);
}

std::int64_t RecordFields::wholeNumber(const char* key, std::int64_t low, std::int64_t high) const {
  const Json& value = at(key);
  const bool fits = value.is_number_integer() &&
                    !(value.is_number_unsigned() && value.get<std::uint64_t>() > INT64_MAX) &&
                    value.get<std::int64_t>() >= low && value.get<std::int64_t>() <= high;
  if (!fits) {
    failKind(key, {record_kind::number, {QString::number(low), QString::number(high)}});
  }
  return value.get<std::int64_t>();
}

}  // namespace tessara
