#include "linux/LinuxShell.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string_view>

#include <sys/stat.h>
#include <unistd.h>

#include "base/Text.h"
#include "linux/LinuxFileSystem.h"
#include "linux/RegisteredProgram.h"

namespace tessara {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t noFault = 0;

bool isFolder(const fs::path& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// What keeps the file from being read, as a result of opening it; noFault for nothing.
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

/// What keeps a program from running in the folder; an empty one is that of this program.
std::int32_t folderFault(const fs::path& folder) {
  if (folder.empty() || ::access(folder.c_str(), X_OK) == 0) {
    return folder.empty() || isFolder(folder) ? noFault : Shell::pathNotFound;
  }
  return errno == EACCES ? Shell::accessDenied : Shell::pathNotFound;
}

/// A compiled help file begins with its signature; a viewer would only report damage.
bool isDamagedHelp(const fs::path& file) {
  constexpr std::string_view signature = "ITSF";
  if (file.extension() != ".chm" || !fs::is_regular_file(file)) {
    return false;
  }
  std::array<char, signature.size()> front{};
  std::ifstream(file, std::ios::binary).read(front.data(), front.size());
  return std::string_view(front.data(), front.size()) != signature;
}

std::int32_t faultOfFile(const fs::path& file) {
  const std::int32_t fault = accessFault(file);
  return fault == noFault && isDamagedHelp(file) ? Shell::badFormat : fault;
}

std::int32_t open(const std::string& target, const fs::path& folder) {
  const bool isAddress = !schemeOf(target).empty();
  for (const std::int32_t fault :
       {isAddress ? noFault : faultOfFile(target), folderFault(folder)}) {
    if (fault != noFault) {
      return fault;
    }
  }
  const RegisteredProgram program =
      isAddress ? RegisteredProgram::forAddress(target) : RegisteredProgram::forFile(target);
  if (!program.isFound()) {
    return Shell::noAssociation;
  }
  return program.start(folder) ? LinuxShell::opened : Shell::accessDenied;
}

}  // namespace

std::int32_t LinuxShell::ShellExecuteA(WindowHandle /*window*/, const std::u16string& operation,
                                       const std::u16string& file,
                                       const std::u16string& /*parameters*/,
                                       const std::u16string& folder, std::int32_t /*showCommand*/) {
  const std::string given = toUtf8(file);
  const fs::path in = pathOfHost(folder);
  const std::string target = schemeOf(given).empty() ? (in / pathOfHost(file)).string() : given;
  const std::int32_t result = operation == u"Open" ? open(target, in) : Shell::noAssociation;
  if (sink_) {
    sink_(target, result);
  }
  return result;
}

}  // namespace tessara
