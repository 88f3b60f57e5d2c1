#pragma once

#include <QStringList>
#include <optional>

#include "linux/DesktopEntry.h"

namespace tessara {

/// What starts the program that the user, or else the system, has registered for one of the types
/// to open `target` with, a file's path or an address. Nothing if no installed program is.
///
/// `types` are MIME types from the closest to the most general. The associations are those of the
/// MIME Applications Associations specification: mimeapps.list in the folders of configuration and
/// applications, the desktop's own first, and behind them what the programs say of themselves. All
/// are read afresh.
std::optional<CommandLine> registeredProgram(const QStringList& types, const QString& target);

}  // namespace tessara
