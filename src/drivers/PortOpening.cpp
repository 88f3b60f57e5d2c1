#include "drivers/PortOpening.h"

#include <exception>

#include "serial/PortError.h"

namespace tessara {

PortOpening::PortOpening(const PortDirectory& ports, std::int16_t comPort)
    : ports_(ports), comPort_(comPort), port_("COM" + std::to_string(comPort)) {}

std::string PortOpening::failureOf(const std::function<void(const std::string& device)>& open) {
  try {
    const auto device = ports_.deviceOf(comPort_);
    if (!device) throw PortError::notThere();
    port_ += " (" + *device + ")";
    open(*device);
    return {};
  } catch (const PortError& error) {
    return port_ + " " + error.what();
  } catch (const std::exception& error) {
    return port_ + " cannot be opened: " + error.what();
  }
}

}  // namespace tessara
