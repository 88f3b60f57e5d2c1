#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "drivers/nfc/Twn4.h"
#include "simulator/nfc/SimulatedTwn4.h"
#include "simulator/nfc/SimulatedUsbReader.h"

namespace tessara {
namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

SimulatedNfcModule module() {
  SimulatedNfcModule module;
  module.module.registers = {{3, 0x1010}, {4, 0x2000}};
  return module;
}

/// Lines of a client.
void askTwn4(std::span<const std::uint8_t> bytes) {
  SimulatedTwn4 reader(module());
  for (const SimulatedAnswer& answer : reader.receive(bytes)) {
    require(!answer.bytes.empty() && answer.bytes.back() == twn4::lineEnd);
  }
}

/// Reports of a client, each preceded by its length.
void askBoard(std::span<const std::uint8_t> bytes) {
  SimulatedBoard board(module());
  (void)board.answer(cr95hf::reportOf(cr95hf::ReportId::ToChip, cr95hf::selectIso15693));
  while (!bytes.empty()) {
    const std::size_t length = std::min<std::size_t>(bytes.front(), bytes.size() - 1);
    const auto report = board.answer(bytes.subspan(1, length));
    if (report) (void)cr95hf::decodeReport(*report);
    bytes = bytes.subspan(1 + length);
  }
}

}  // namespace
}  // namespace tessara

/// A simulated reader survives anything that a client sends; the first byte selects the reader.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::span<const std::uint8_t> bytes(data + 1, size - 1);
  if (data[0] % 2 == 0) {
    tessara::askTwn4(bytes);
  } else {
    tessara::askBoard(bytes);
  }
  return 0;
}
