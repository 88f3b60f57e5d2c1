#include "record/RecordProblem.h"

#include <stdexcept>

#include "record/RecordMessages.h"

namespace tessara {
namespace {

QString inQt(const std::string& text) {
  return QString::fromStdString(text);
}

const char* kindWord(jsonProblem::Kind kind) {
  switch (kind) {
    case jsonProblem::Kind::Object:
      return record_kind::object;
    case jsonProblem::Kind::Text:
      return record_kind::text;
    case jsonProblem::Kind::Truth:
      return record_kind::truth;
    case jsonProblem::Kind::List:
    case jsonProblem::Kind::Number:
      break;
  }
  throw std::logic_error("a record has no field of this kind");
}

/// The error of the field at `path` in the file `name`.
struct FieldError {
  const QString& name;
  const std::string& path;

  RecordError operator()(const jsonProblem::Missing& /*problem*/) const {
    return RecordError({record_message::fieldMissing, {name, inQt(path)}});
  }
  RecordError operator()(const jsonProblem::Other& problem) const {
    throw std::logic_error(path + ": " + problem.text);
  }
  RecordError operator()(const jsonProblem::WrongKind& problem) const {
    return wrongField(name, path, problem.value, {kindWord(problem.expected)});
  }
  RecordError operator()(const jsonProblem::WrongNumber& problem) const {
    return wrongField(name, path, problem.value,
                      {record_kind::number, {inQt(problem.min), inQt(problem.max)}});
  }
  RecordError operator()(const jsonProblem::WrongChoice& problem) const {
    QStringList choices;
    for (const std::string& choice : problem.choices) {
      choices += inQt(choice);
    }
    return wrongField(name, path, problem.value, {record_kind::oneOf, {choices.join(", ")}});
  }
};

}  // namespace

RecordError recordError(const QString& name, const JsonSyntaxError& error) {
  return RecordError({record_message::invalidJson,
                      {name, QString::number(error.place().line),
                       QString::number(error.place().column), inQt(error.cause())}});
}

RecordError recordError(const QString& name, const JsonError& error) {
  return std::visit(FieldError{name, error.path()}, error.problem());
}

RecordError wrongField(const QString& name, const std::string& path, const std::string& value,
                       const Phrase& kind) {
  return RecordError({record_message::fieldWrong, {name, inQt(path), inQt(value)}}, kind);
}

}  // namespace tessara
