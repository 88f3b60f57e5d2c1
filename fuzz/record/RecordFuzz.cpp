#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "record/RecordJson.h"

namespace {

/// What reading and writing make of a record: the same however often that is done.
void requireStable(const tessara::ModuleRecord& record) {
  const QByteArray written = tessara::recordJson(record);
  if (tessara::recordJson(tessara::recordFromJson(written, "written.json")) != written) {
    std::abort();
  }
}

}  // namespace

/// Whatever a record file holds, it is a record that can be saved again and is the same then, or is
/// refused with its own error, which can be told in every language.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  std::optional<tessara::ModuleRecord> record;
  try {
    record = tessara::recordFromJson(bytes, "record.json");
  } catch (const tessara::RecordError& error) {
    (void)error.text(tessara::HostTexts(tessara::HostTexts::Language::Chinese));
    return 0;
  }
  requireStable(*record);
  return 0;
}
