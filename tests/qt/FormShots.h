#pragma once

#include <QDir>
#include <QString>

namespace tessara::testing {

/// Writes pictures of both dialogs in every language into the folder, named
/// <dialog>-<language number>-<theme>-<percent>.png. False if one cannot be written.
bool takeForms(const QString& theme, const QDir& folder);

}  // namespace tessara::testing
