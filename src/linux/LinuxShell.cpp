#include "linux/LinuxShell.h"

#include <QMimeDatabase>
#include <QRegularExpression>
#include <cerrno>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

#include "base/Text.h"
#include "linux/DetachedProgram.h"
#include "linux/LinuxFileSystem.h"
#include "linux/RegisteredPrograms.h"

namespace tessara {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t noFault = 0;

/// An address begins with a scheme. A single letter is a drive of another system.
bool isAddress(const QString& target) {
  static const QRegularExpression scheme("^[A-Za-z][A-Za-z0-9+.-]+:");
  return scheme.match(target).hasMatch();
}

bool isFolder(const fs::path& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// What stands in the way of reading the file: noFault, or a result that tells it.
std::int32_t accessFault(const fs::path& file) {
  struct stat status {};
  if (::stat(file.c_str(), &status) == 0) {
    return ::access(file.c_str(), R_OK) == 0 ? noFault : Shell::accessDenied;
  }
  if (errno == EACCES) {
    return Shell::accessDenied;
  }
  return isFolder(file.parent_path()) ? Shell::fileNotFound : Shell::pathNotFound;
}

/// A compiled help file begins with its signature; a viewer would only say that it is damaged.
bool isDamagedHelp(const fs::path& file) {
  constexpr std::string_view signature = "ITSF";
  if (file.extension() != ".chm" || !fs::is_regular_file(file)) {
    return false;
  }
  std::string front(signature.size(), '\0');
  std::ifstream(file, std::ios::binary)
      .read(front.data(), static_cast<std::streamsize>(front.size()));
  return front != signature;
}

/// The types under which a program may be registered for the target, the closest first.
QStringList typesOf(const QString& target) {
  if (isAddress(target)) {
    return {"x-scheme-handler/" + target.section(':', 0, 0).toLower()};
  }
  const QMimeType type = QMimeDatabase().mimeTypeForFile(target);
  QStringList types = QStringList(type.name()) + type.aliases() + type.allAncestors();
  // What opens just any bytes, an editor of them, is no help to somebody who wants to read.
  types.removeAll("application/octet-stream");
  return types;
}

std::int32_t open(const QString& target, const fs::path& folder) {
  if (!isAddress(target)) {
    const fs::path file(target.toStdString());
    const std::int32_t fault = accessFault(file);
    if (fault != noFault) {
      return fault;
    }
    if (isDamagedHelp(file)) {
      return Shell::badFormat;
    }
  }
  if (!folder.empty() && !isFolder(folder)) {
    return Shell::pathNotFound;
  }
  const auto command = registeredProgram(typesOf(target), target);
  if (!command) {
    return Shell::noAssociation;
  }
  return startDetached(*command, QString::fromStdString(folder.string())) ? LinuxShell::opened
                                                                          : Shell::accessDenied;
}

}  // namespace

std::int32_t LinuxShell::ShellExecuteA(WindowHandle /*window*/, const std::u16string& operation,
                                       const std::u16string& file,
                                       const std::u16string& /*parameters*/,
                                       const std::u16string& folder, std::int32_t /*showCommand*/) {
  const QString given = QString::fromStdU16String(file);
  const fs::path in = pathOfHost(folder);
  const QString target =
      isAddress(given) ? given : QString::fromStdString((in / pathOfHost(file)).string());
  const std::int32_t result = operation == u"Open" ? open(target, in) : Shell::noAssociation;
  if (sink_) {
    sink_(target.toStdString(), result);
  }
  return result;
}

}  // namespace tessara
