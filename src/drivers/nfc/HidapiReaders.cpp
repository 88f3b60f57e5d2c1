#include "drivers/nfc/HidapiReaders.h"

#include <cerrno>
#include <string>

#include <fcntl.h>
#include <hidapi/hidapi.h>
#include <sys/file.h>
#include <unistd.h>

#include "drivers/PortLock.h"
#include "drivers/nfc/NfcFault.h"

namespace tessara {

namespace {

constexpr unsigned short kVendor = 0x0483;
constexpr unsigned short kProduct = 0xD0D0;

/// The reader's part of a board that is several devices in one.
constexpr int kReaderInterface = 1;

/// The node of the reader; empty if there is none.
std::string findReader() {
  const std::unique_ptr<hid_device_info, decltype(&hid_free_enumeration)> found(
      hid_enumerate(kVendor, kProduct), &hid_free_enumeration);
  std::string path;
  for (const hid_device_info* device = found.get(); device != nullptr; device = device->next) {
    if (path.empty() || device->interface_number == kReaderInterface) path = device->path;
  }
  return path;
}

/// The device node, held open and locked: hidapi lets any number of programs open a device, and
/// each would see the answers to the others.
class NodeLock {
 public:
  explicit NodeLock(const std::string& path)
      : descriptor_(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC)) {
    if (descriptor_ < 0) throw PortError::fromErrno(errno);
    if (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0) {
      const int error = errno;
      ::close(descriptor_);
      throw PortError::fromErrno(error);
    }
  }
  ~NodeLock() { ::close(descriptor_); }
  NodeLock(const NodeLock&) = delete;
  NodeLock& operator=(const NodeLock&) = delete;

 private:
  int descriptor_;
};

NfcFault readerHasGone() {
  return {NfcFaultKind::NoReader, "the reader has been unplugged"};
}

class HidapiDevice final : public HidDevice {
 public:
  explicit HidapiDevice(const std::string& path)
      : path_(path), lock_(path), device_(hid_open_path(path.c_str()), &hid_close) {
    if (!device_) throw PortError(PortProblem::Refused, "cannot be opened: it is no HID device");
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
  NodeLock lock_;
  std::unique_ptr<hid_device, decltype(&hid_close)> device_;
};

}  // namespace

HidapiReaders::~HidapiReaders() {
  hid_exit();
}

std::unique_ptr<HidDevice> HidapiReaders::open() {
  const std::string path = findReader();
  if (path.empty()) throw PortError::fromErrno(ENODEV);
  return std::make_unique<HidapiDevice>(path);
}

}  // namespace tessara
