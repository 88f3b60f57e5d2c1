#include "Resources.h"

#include <filesystem>
#include <iterator>

#ifdef __SANITIZE_ADDRESS__
// g++ has the function, but no header for it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // NOLINT
#else
#include <malloc.h>
#endif

namespace tessara::testing {
namespace {

std::size_t heapInUse() {
#ifdef __SANITIZE_ADDRESS__
  return __sanitizer_get_current_allocated_bytes();
#else
  return ::mallinfo2().uordblks;
#endif
}

}  // namespace

Resources Resources::now() {
  const std::filesystem::directory_iterator open("/proc/self/fd");
  const auto descriptors = std::distance(begin(open), end(open));
  return {heapInUse(), static_cast<std::size_t>(descriptors)};
}

}  // namespace tessara::testing
