#include <array>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "linux/ports/SerialDevice.h"

namespace tessara {
namespace {

namespace fs = std::filesystem;

/// A made-up device tree in a folder of its own.
class SysfsDevices : public ::testing::Test {
 protected:
  SysfsDevices() {
    std::string pattern = (fs::temp_directory_path() / "sysfs-XXXXXX").string();
    root = ::mkdtemp(pattern.data());
  }
  ~SysfsDevices() override { fs::remove_all(root); }

  void write(const std::string& path, const std::string& text) const {
    fs::create_directories((root / path).parent_path());
    std::ofstream(root / path) << text;
  }
  void link(const std::string& path, const std::string& target) const {
    fs::create_directories((root / path).parent_path());
    fs::create_symlink(target, root / path);
  }

  void addAdapter() const {
    const std::string usb = "sys/devices/pci0000:00/usb1/1-2";
    write(usb + "/idVendor", "10c4\n");
    write(usb + "/idProduct", "ea60\n");
    write(usb + "/serial", "00 01\n");
    write(usb + "/1-2:1.1/bInterfaceNumber", "01\n");
    write(usb + "/1-2:1.1/ttyUSB7/port_number", "0\n");
    link(usb + "/1-2:1.1/ttyUSB7/driver", "../../../../../../bus/usb-serial/drivers/cp210x");
    write(usb + "/1-2:1.1/ttyUSB7/tty/ttyUSB7/dev", "188:7\n");
    link(usb + "/1-2:1.1/ttyUSB7/tty/ttyUSB7/device", "../../../ttyUSB7");
    link("sys/class/tty/ttyUSB7", "../../devices/pci0000:00/usb1/1-2/1-2:1.1/ttyUSB7/tty/ttyUSB7");
  }

  void addConsole() const {
    write("sys/devices/virtual/tty/console/active", "tty0\n");
    link("sys/class/tty/console", "../../devices/virtual/tty/console");
  }

  fs::path root;
};

TEST_F(SysfsDevices, FindsAnAdapterThroughTheLinksOfTheTree) {
  addConsole();
  addAdapter();
  const FoundDevices found = sysfsDevices(root);
  const std::vector<SerialDevice> expected{{"ttyUSB7", (root / "dev/ttyUSB7").string(), "cp210x",
                                            std::nullopt, UsbIdentity{0x10C4, 0xEA60, "00 01", 1},
                                            "/devices/pci0000:00/usb1/1-2", "0"}};
  EXPECT_EQ(found, expected);
}

TEST_F(SysfsDevices, ADeviceWithoutADriverHasTheNameOfItsKind) {
  write("sys/devices/platform/odd/tty/ttyXR0/type", "5\n");
  link("sys/devices/platform/odd/tty/ttyXR0/device", "../../../odd");
  link("sys/class/tty/ttyXR0", "../../devices/platform/odd/tty/ttyXR0");
  const std::vector<SerialDevice> expected{
      {"ttyXR0", (root / "dev/ttyXR0").string(), "ttyXR", "5"}};
  EXPECT_EQ(sysfsDevices(root), expected);
}

TEST_F(SysfsDevices, ADanglingLinkIsNotADevice) {
  addConsole();
  link("sys/class/tty/ttyUSB0", "../../devices/gone/tty/ttyUSB0");
  EXPECT_EQ(sysfsDevices(root), std::vector<SerialDevice>{});
}

TEST_F(SysfsDevices, IsNotAvailableWithoutATree) {
  EXPECT_EQ(sysfsDevices(root), std::nullopt);
  fs::create_directories(root / "sys");
  EXPECT_EQ(sysfsDevices(root), std::nullopt);
  fs::create_directories(root / "sys/class/tty");
  EXPECT_EQ(sysfsDevices(root), std::nullopt);
}

}  // namespace
}  // namespace tessara
