#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "simulator/ModbusCodec.h"

namespace tessara {
namespace {

void require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

/// A decoded frame is encoded to the same bytes again.
void decode(const Bytes& frame) {
  if (const auto request = decodeModbusRequest(frame)) {
    require(modbusFrame(request->address, request->function, request->data) == frame);
  }
}

}  // namespace
}  // namespace tessara

/// Bytes from a master, in pieces whose length is in the first byte and with a silence at the end:
/// all of them end in frames, and the simulator survives them. Since few have a right checksum,
/// they are also tried with one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::span<const std::uint8_t> bytes(data, size);
  const std::size_t piece = size == 0 ? 1 : data[0] + std::size_t{1};
  bytes = bytes.subspan(std::min<std::size_t>(size, 1));
  tessara::decode(tessara::withModbusCrc({bytes.begin(), bytes.end()}));
  tessara::ModbusFrameAssembler assembler;
  while (!bytes.empty()) {
    const std::size_t length = std::min(piece, bytes.size());
    assembler.append(bytes.first(length));
    bytes = bytes.subspan(length);
    while (const auto frame = assembler.takeComplete()) {
      tessara::require(tessara::decodeModbusRequest(*frame).has_value());
      tessara::decode(*frame);
    }
  }
  tessara::decode(assembler.takeAll());
  tessara::require(assembler.empty());
  return 0;
}
