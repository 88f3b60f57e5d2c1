#pragma once

#include <string>

#include "json/JsonError.h"
#include "record/RecordError.h"

namespace tessara {

/// What is wrong with the JSON in the record file `name`, for the user.
RecordError recordError(const QString& name, const JsonSyntaxError& error);
RecordError recordError(const QString& name, const JsonError& error);

/// The field at that path holds `value`, and should be of that kind.
RecordError wrongField(const QString& name, const std::string& path, const std::string& value,
                       const Phrase& kind);

}  // namespace tessara
