#pragma once

#include <QCoreApplication>

/// The messages of RecordError, in English. %1 is the file.
namespace tessara::record_message {

//: %2: the cause as the system words it
inline constexpr auto unreadable = QT_TRANSLATE_NOOP("RecordError", "%1 cannot be read: %2");
//: %2: the cause as the system words it
inline constexpr auto unwritable = QT_TRANSLATE_NOOP("RecordError", "%1 cannot be written: %2");
inline constexpr auto tooLarge =
    QT_TRANSLATE_NOOP("RecordError", "%1 is not a module record: it is larger than %2 KB.");
//: %4: the cause as the JSON parser words it
inline constexpr auto invalidJson = QT_TRANSLATE_NOOP(
    "RecordError", "%1 is not a module record: invalid JSON at line %2, column %3 (%4).");
//: %2: the name of the format
inline constexpr auto otherFormat =
    QT_TRANSLATE_NOOP("RecordError", "%1 is not a module record: its format is not %2.");
//: %2 and %3: version numbers
inline constexpr auto newerVersion = QT_TRANSLATE_NOOP(
    "RecordError",
    "%1 was written by a newer program: it has version %2; this program reads up to version %3.");
//: %2: the name of the field
inline constexpr auto fieldMissing =
    QT_TRANSLATE_NOOP("RecordError", "%1 is a damaged module record: the field %2 is missing.");
//: %2: the name of the field, %3: its value, %4: what it must be, such as "an object"
inline constexpr auto fieldWrong = QT_TRANSLATE_NOOP(
    "RecordError", "%1 is a damaged module record: the field %2 is %3 but must be %4.");

}  // namespace tessara::record_message

/// What a field must be: the last place of record_message::fieldWrong.
namespace tessara::record_kind {

//: … but must be an object
inline constexpr auto object = QT_TRANSLATE_NOOP("RecordError", "an object");
//: … but must be a text
inline constexpr auto text = QT_TRANSLATE_NOOP("RecordError", "a text");
//: … but must be true or false. Both words stand in the file as they are here.
inline constexpr auto truth = QT_TRANSLATE_NOOP("RecordError", "true or false");
//: … but must be a date and time
inline constexpr auto time = QT_TRANSLATE_NOOP("RecordError", "a date and time");
//: … but must be a whole number from %1 to %2
inline constexpr auto number = QT_TRANSLATE_NOOP("RecordError", "a whole number from %1 to %2");
//: … but must be one of %1. %1: the words that may stand in the file
inline constexpr auto oneOf = QT_TRANSLATE_NOOP("RecordError", "one of %1");

}  // namespace tessara::record_kind
