#include "linux/ports/NumberAssignment.h"

#include <algorithm>
#include <limits>
#include <map>

#include "linux/ports/DeviceNames.h"
#include "ports/AdapterWords.h"

namespace tessara {
namespace {

/// The first numbers of the machine's own UARTs and of adapters.
constexpr std::int16_t firstForUart = 1;
constexpr std::int16_t firstForAdapter = 3;

class Assignment {
 public:
  Assignment(const std::vector<SerialDevice>& devices, const std::set<std::int16_t>& claimed,
             PortNumbers& memory)
      : devices_(devices),
        claimed_(claimed),
        memory_(memory),
        known_(memory.load()),
        numbers_(devices.size(), 0) {}

  std::vector<std::int16_t> run() {
    forEachWithout([this](const SerialDevice& device) { return numberAtSamePlace(device); });
    forEachWithout([this](const SerialDevice& device) { return numberFromElsewhere(device); });
    const std::vector<std::int16_t> own = numbers_;
    for (std::size_t i = 0; i < devices_.size(); ++i) {
      if (claimed_.contains(own[i])) {
        numbers_[i] = freeNumber(devices_[i]);
      }
    }
    forEachWithout([this](const SerialDevice& device) { return newNumber(device); });
    return numbers_;
  }

 private:
  template <typename Find>
  void forEachWithout(Find find) {
    for (std::size_t i = 0; i < devices_.size(); ++i) {
      if (numbers_[i] == 0) {
        numbers_[i] = find(devices_[i]);
      }
    }
  }

  [[nodiscard]] bool isGiven(std::int16_t number) const {
    return std::find(numbers_.begin(), numbers_.end(), number) != numbers_.end();
  }

  template <typename Matches>
  [[nodiscard]] std::int16_t rememberedNumber(Matches matches) const {
    const auto found = std::find_if(known_.begin(), known_.end(), [&](const auto& entry) {
      return matches(entry.second) && !isGiven(entry.first);
    });
    return found == known_.end() ? std::int16_t{0} : found->first;
  }

  [[nodiscard]] std::int16_t numberAtSamePlace(const SerialDevice& device) const {
    const DeviceKey key = deviceKeyOf(device);
    return rememberedNumber([&](const DeviceKey& known) { return known == key; });
  }

  std::int16_t numberFromElsewhere(const SerialDevice& device) {
    const DeviceKey key = deviceKeyOf(device);
    const std::int16_t number = isKnownAnywhere(device)
                                    ? rememberedNumber([&](const DeviceKey& known) {
                                        return known.identity == key.identity;
                                      })
                                    : std::int16_t{0};
    return remembered(number, key);
  }

  std::int16_t newNumber(const SerialDevice& device) {
    return remembered(freeNumber(device), deviceKeyOf(device));
  }

  std::int16_t remembered(std::int16_t number, const DeviceKey& key) {
    if (number != 0) {
      known_[number] = key;
      memory_.store(number, key);
    }
    return number;
  }

  [[nodiscard]] std::int16_t freeNumber(const SerialDevice& device) const {
    std::int16_t number = isBuiltInUart(device) ? firstForUart : firstForAdapter;
    while (number == usbReaderPort || known_.contains(number) || claimed_.contains(number) ||
           isGiven(number)) {
      if (number == std::numeric_limits<std::int16_t>::max()) {
        return 0;
      }
      ++number;
    }
    return number;
  }

  const std::vector<SerialDevice>& devices_;
  const std::set<std::int16_t>& claimed_;
  PortNumbers& memory_;
  std::map<std::int16_t, DeviceKey> known_;
  std::vector<std::int16_t> numbers_;
};

}  // namespace

std::vector<std::int16_t> assignNumbers(const std::vector<SerialDevice>& devices,
                                        const std::set<std::int16_t>& claimed,
                                        PortNumbers& memory) {
  return Assignment(devices, claimed, memory).run();
}

}  // namespace tessara
