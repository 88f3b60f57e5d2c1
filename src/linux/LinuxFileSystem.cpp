#include "linux/LinuxFileSystem.h"

#include <algorithm>
#include <system_error>

#include <dlfcn.h>
#include <link.h>

#include "base/Text.h"

namespace tessara {

namespace {

bool isSeparator(char16_t sign) {
  return sign == u'/' || sign == u'\\';
}

namespace fs = std::filesystem;

/// The file that holds this function. The system keeps the whole path of the program itself.
fs::path loadedFile() {
  Dl_info info{};
  void* map = nullptr;
  const void* here = reinterpret_cast<const void*>(&loadedFile);
  const bool isKnown = ::dladdr1(here, &info, &map, RTLD_DL_LINKMAP) != 0;
  // The program itself has no name in the list of what is loaded.
  const char* library = isKnown ? static_cast<const link_map*>(map)->l_name : "";
  std::error_code error;
  fs::path file =
      *library != '\0' ? fs::canonical(library, error) : fs::read_symlink("/proc/self/exe", error);
  return error ? fs::path(library) : file;
}

/// Makes sure that the folder is found before a package update can replace the file.
[[maybe_unused]] const fs::path& foundAtTheStart = programFolder();

}  // namespace

std::filesystem::path pathOfHost(const std::u16string& name) {
  std::u16string path = name;
  std::replace(path.begin(), path.end(), u'\\', u'/');
  return toUtf8(path);
}

const fs::path& programFolder() {
  static const fs::path folder = loadedFile().parent_path();
  return folder;
}

bool LinuxFileSystem::FileExists(const std::u16string& path) const {
  // Reading a pipe or a device could wait, or go on, without end.
  std::error_code error;
  // The system would take a zero for the end of the path.
  return path.find(u'\0') == std::u16string::npos &&
         std::filesystem::is_regular_file(pathOfHost(path), error);
}

std::u16string LinuxFileSystem::BuildPath(const std::u16string& path,
                                          const std::u16string& name) const {
  const bool needsSeparator =
      !path.empty() && !isSeparator(path.back()) && (name.empty() || !isSeparator(name.front()));
  std::u16string joined = path + (needsSeparator ? u"/" : u"") + name;
  std::replace(joined.begin(), joined.end(), u'\\', u'/');
  return joined;
}

}  // namespace tessara
