#include "drivers/nfc/HidapiReaders.h"

#include <string>

#include <hidapi/hidapi.h>

#include "drivers/nfc/NfcFault.h"
#include "serial/DeviceLock.h"
#include "serial/PortError.h"

namespace tessara {

namespace {

constexpr unsigned short readerVendor = 0x0483;
constexpr unsigned short readerProduct = 0xD0D0;

/// The reader's interface on a board that is several devices in one.
constexpr int readerInterface = 1;

/// The node of the reader; empty if there is none.
std::string findReader() {
  const std::unique_ptr<hid_device_info, decltype(&hid_free_enumeration)> found(
      hid_enumerate(readerVendor, readerProduct), &hid_free_enumeration);
  std::string path;
  for (const hid_device_info* device = found.get(); device != nullptr; device = device->next) {
    if (path.empty() || device->interface_number == readerInterface) path = device->path;
  }
  return path;
}

NfcFault readerHasGone() {
  return {NfcFaultKind::NoReader, "the reader has been unplugged"};
}

class HidapiDevice final : public HidDevice {
 public:
  explicit HidapiDevice(const std::string& path)
      : path_(path), lock_(path), device_(hid_open_path(path.c_str()), &hid_close) {
    if (!device_) throw PortError(PortProblem::Refused, "is not a HID device");
  }

  void write(const cr95hf::Report& report) override {
    if (hid_write(device_.get(), report.data(), report.size()) < 0) throw readerHasGone();
  }

  std::optional<Bytes> read(std::chrono::milliseconds timeout) override {
    Bytes report(cr95hf::Report().size());
    const int length = hid_read_timeout(device_.get(), report.data(), report.size(),
                                        static_cast<int>(timeout.count()));
    if (length < 0) throw readerHasGone();
    if (length == 0) return std::nullopt;
    report.resize(static_cast<std::size_t>(length));
    return report;
  }

  [[nodiscard]] std::string name() const override { return path_; }

 private:
  std::string path_;
  DeviceLock lock_;  // hidapi lets any number of programs open a device
  std::unique_ptr<hid_device, decltype(&hid_close)> device_;
};

}  // namespace

HidapiReaders::~HidapiReaders() {
  hid_exit();
}

std::unique_ptr<HidDevice> HidapiReaders::open() {
  const std::string path = findReader();
  if (path.empty()) throw PortError::notThere();
  return std::make_unique<HidapiDevice>(path);
}

}  // namespace tessara
