#include "linux/RegisteredProgram.h"

#include <cctype>
#include <utility>

#include <fcntl.h>
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <unistd.h>

#include "linux/GlibPointers.h"

namespace tessara {
namespace {

/// An open file descriptor on nothing, or -1.
class Nowhere {
 public:
  Nowhere() : descriptor_(::open("/dev/null", O_RDWR | O_CLOEXEC)) {}
  Nowhere(const Nowhere&) = delete;
  Nowhere& operator=(const Nowhere&) = delete;
  ~Nowhere() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  [[nodiscard]] int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

/// Runs in the new process just before it becomes the program, where only system calls are allowed.
void separate(gpointer folder) {
  ::setsid();
  const char* path = static_cast<const char*>(folder);
  // That the folder can be entered was checked before.
  if (*path != '\0' && ::chdir(path) != 0) ::_exit(EXIT_FAILURE);
}

}  // namespace

struct RegisteredProgram::Found {
  ObjectPointer<GAppInfo> application;
  /// What it opens.
  std::string uri;
};

RegisteredProgram::RegisteredProgram(std::unique_ptr<Found> found) : found_(std::move(found)) {}
RegisteredProgram::RegisteredProgram(RegisteredProgram&& other) noexcept = default;
RegisteredProgram::~RegisteredProgram() = default;

RegisteredProgram RegisteredProgram::forFile(const std::filesystem::path& path) {
  const ObjectPointer<GFile> file(g_file_new_for_path(path.c_str()));
  const ObjectPointer<GFileInfo> info(g_file_query_info(file.get(),
                                                        G_FILE_ATTRIBUTE_STANDARD_CONTENT_TYPE,
                                                        G_FILE_QUERY_INFO_NONE, nullptr, nullptr));
  const char* type = info ? g_file_info_get_content_type(info.get()) : nullptr;
  if (type == nullptr || g_content_type_is_unknown(type)) return RegisteredProgram(nullptr);
  ObjectPointer<GAppInfo> application(g_app_info_get_default_for_type(type, FALSE));
  if (!application) return RegisteredProgram(nullptr);
  const GlibMemory<> uri(g_file_get_uri(file.get()));
  return RegisteredProgram(std::make_unique<Found>(Found{std::move(application), uri.get()}));
}

RegisteredProgram RegisteredProgram::forAddress(const std::string& address) {
  ObjectPointer<GAppInfo> application(
      g_app_info_get_default_for_uri_scheme(schemeOf(address).c_str()));
  if (!application) return RegisteredProgram(nullptr);
  return RegisteredProgram(std::make_unique<Found>(Found{std::move(application), address}));
}

bool RegisteredProgram::start(const std::filesystem::path& folder) const {
  GDesktopAppInfo* entry = G_DESKTOP_APP_INFO(found_->application.get());
  const GlibMemory<> ownFolder(g_desktop_app_info_get_string(entry, G_KEY_FILE_DESKTOP_KEY_PATH));
  std::string startFolder = ownFolder ? "" : folder.string();
  const Nowhere nowhere;
  GList uris{found_->uri.data(), nullptr, nullptr};
  return g_desktop_app_info_launch_uris_as_manager_with_fds(
             entry, &uris, nullptr, G_SPAWN_SEARCH_PATH, separate, startFolder.data(), nullptr,
             nullptr, nowhere.descriptor(), nowhere.descriptor(), nowhere.descriptor(),
             nullptr) != FALSE;
}

std::string schemeOf(const std::string& target) {
  const char* scheme = g_uri_peek_scheme(target.c_str());
  const bool isDrive = target.size() > 1 && target[1] == ':';
  return scheme == nullptr || isDrive ? std::string() : std::string(scheme);
}

}  // namespace tessara
