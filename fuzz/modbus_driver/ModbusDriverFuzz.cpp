#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "drivers/modbus/ModbusCodec.h"
#include "drivers/modbus/ModbusFault.h"
#include "simulator/ModbusCodec.h"

namespace tessara {
namespace {

void require(bool holds) {
  if (!holds) {
    std::abort();
  }
}

void readAnswer(const ModbusRequest& request, std::span<const std::uint8_t> frame) {
  try {
    const auto data = request.dataOf(frame);
    require(wordsOf(data).size() == data.size() / 2);
    require(identificationOf(data).size() == 4);
  } catch (const ModbusFault&) {
    return;
  }
}

/// The driver finds the data that the module sent.
void readOwnAnswer(const ModbusRequest& request, std::span<const std::uint8_t> data) {
  Bytes counted{static_cast<std::uint8_t>(data.size())};
  counted.insert(counted.end(), data.begin(), data.end());
  const Bytes frame = modbusFrame(request.address(), reportServerIdFunction, counted);
  require(holdsWholeFrame(frame) && request.isAnsweredBy(frame));
  const auto read = request.dataOf(frame);
  require(Bytes(read.begin(), read.end()) == Bytes(data.begin(), data.end()));
}

}  // namespace
}  // namespace tessara

/// Any answer makes the driver fail only with its own error.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using tessara::ModbusRequest;
  const std::span<const std::uint8_t> bytes(data, size);
  (void)tessara::holdsWholeFrame(bytes);
  for (const auto& request :
       {ModbusRequest::identification(192), ModbusRequest::inputRegisters(192, 5, 4)}) {
    tessara::readAnswer(request, bytes);
  }
  constexpr std::size_t longestData = 251;
  tessara::readOwnAnswer(ModbusRequest::identification(192),
                         bytes.first(std::min(size, longestData)));
  return 0;
}
