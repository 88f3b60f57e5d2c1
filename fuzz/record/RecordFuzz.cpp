#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "record/RecordJson.h"

namespace {

/// Reading a written record and writing it again must give the same bytes.
void requireStable(const tessara::ModuleRecord& record) {
  const QByteArray written = tessara::recordJson(record);
  if (tessara::recordJson(tessara::recordFromJson(written, "written.json")) != written) {
    std::abort();
  }
}

}  // namespace

/// Any file is either a record, which must stay the same when it is saved, or is refused with a
/// RecordError.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  std::optional<tessara::ModuleRecord> record;
  try {
    record = tessara::recordFromJson(bytes, "record.json");
  } catch (const tessara::RecordError&) {
    return 0;
  }
  requireStable(*record);
  return 0;
}
