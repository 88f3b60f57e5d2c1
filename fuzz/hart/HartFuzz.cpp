#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "drivers/hart/HartExchange.h"
#include "drivers/hart/HartFault.h"
#include "drivers/hart/HartIdentity.h"
#include "drivers/hart/HartParser.h"
#include "drivers/hart/HartStatus.h"

namespace tessara {
namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

/// All frames found in the bytes when they come in pieces of up to `piece`.
std::vector<HartReception> receptionsOf(std::span<const std::uint8_t> bytes, std::size_t piece) {
  HartParser parser;
  std::vector<HartReception> found;
  const auto take = [&] {
    while (auto reception = parser.next()) found.push_back(std::move(*reception));
  };
  while (!bytes.empty()) {
    const std::size_t count = std::min(piece, bytes.size());
    parser.feed(bytes.first(count));
    bytes = bytes.subspan(count);
    take();
  }
  parser.silence();
  take();
  require(!parser.isFrameOpen());
  return found;
}

/// What a driver does with an intact frame.
void useFrame(const HartFrame& frame) {
  const HartFrame request = hartRequest(frame.address, frame.commandNumber());
  (void)isHartAnswer(frame, request);
  (void)hartMismatch(frame, request);
  (void)hartAddressText(frame.address);
  require(frame.payload().size() <= frame.data.size());
  if (!frame.isFromModule()) return;
  const HartStatus status({frame.data[0], frame.data[1]});
  (void)status.outcome();
  require(!status.text().empty());
  try {
    require(hartIdentityOf(frame.payload()).address.isLong());
  } catch (const HartFault&) {
    return;
  }
}

}  // namespace
}  // namespace tessara

/// Any bytes from the line: the pieces make no difference, an intact frame is encoded to the same
/// bytes again, and everything fails only with its own error.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessara;
  const std::span<const std::uint8_t> bytes(data, size);
  const auto found = receptionsOf(bytes, std::max<std::size_t>(size, 1));
  const auto single = receptionsOf(bytes, 1);
  require(std::equal(found.begin(), found.end(), single.begin(), single.end(),
                     [](const HartReception& one, const HartReception& other) {
                       return one.damage == other.damage && one.frame == other.frame;
                     }));
  for (const HartReception& reception : found) {
    (void)hartPauseAfter(reception, true, {});
    if (reception.damage != HartDamage::None) continue;
    const HartBytes encoded = encodeHart(reception.frame);
    require(std::search(bytes.begin(), bytes.end(), encoded.begin(), encoded.end()) != bytes.end());
    useFrame(reception.frame);
  }
  return 0;
}
