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

/// The file of the module that holds this function.
std::filesystem::path moduleFile() {
  Dl_info info{};
  void* map = nullptr;
  const void* here = reinterpret_cast<const void*>(&moduleFile);
  const bool isKnown = ::dladdr1(here, &info, &map, RTLD_DL_LINKMAP) != 0;
  // The program itself carries no name in the list of modules.
  const char* name = isKnown ? static_cast<const link_map*>(map)->l_name : "";
  return *name != '\0' ? std::filesystem::path(name) : std::filesystem::path("/proc/self/exe");
}

}  // namespace

std::filesystem::path pathOfHost(const std::u16string& name) {
  std::u16string path = name;
  std::replace(path.begin(), path.end(), u'\\', u'/');
  return toUtf8(path);
}

std::filesystem::path programFolder() {
  return std::filesystem::canonical(moduleFile()).parent_path();
}

bool LinuxFileSystem::FileExists(const std::u16string& path) const {
  // A pipe or a device in the place of a file would be waited for, or read, without an end.
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
