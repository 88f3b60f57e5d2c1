#pragma once

#include <QSettings>
#include <QString>
#include <string>

namespace tessara {

/// The INI form of the settings file, as QSettings reads and writes it for us.
///
/// It is the usual dialect, [group] lines and name=value lines in UTF-8, read in a way that loses
/// nothing that a technician wrote by hand:
/// - a single backslash stands for itself, so that \Device\Silabser9 may be written as it is;
/// - comment lines (; or #) are kept and stay above the value that they precede;
/// - a value that this system does not understand is written back letter by letter.
///
/// The values that QSettings holds in this format are raw: decodeValue() and encodeValue() lead
/// from and to the text.
QSettings::Format settingsFormat();

/// What is wrong with the first bad line of that file, with its number: "line 3: ..."; empty if the
/// whole file is well-formed.
std::string settingsFault(const QString& path);

/// The text behind a raw value. Throws RunTimeError for one that is no plain text.
QString decodeValue(const QVariant& raw);

/// The raw value for that text, which keeps the comments of the value that it replaces. Throws
/// RunTimeError for a text with control characters: a setting is one line.
QVariant encodeValue(const QString& text, const QVariant& replaced);

}  // namespace tessara
