#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <string>
#include <thread>

#include <gtest/gtest.h>
#include <linux/hidraw.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <umockdev.h>
#include <unistd.h>

#include "simulator/nfc/SimulatedUsbReader.h"

namespace tessara::testing {

/// A computer, as the program under test sees it, with HID devices plugged in.
class MockedComputer {
 public:
  MockedComputer() : bed_(umockdev_testbed_new(), g_object_unref) {
    add("P: " + controller() + "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\n\n");
  }

  /// Plugs in a device with that identity, "0483" and "D0D0", as /dev/hidraw0.
  void plugIn(const std::string& vendor, const std::string& product) {
    const std::string device = controller() + "/1-3";
    const std::string interface = device + "/1-3:1.1";
    const std::string hid = interface + "/0003:" + vendor + ":" + product + ".0001";
    add("P: " + device + "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\nA: idVendor=" + vendor +
        "\\n\nA: idProduct=" + product + "\\n\n\n");
    add("P: " + interface +
        "\nE: SUBSYSTEM=usb\nE: DEVTYPE=usb_interface\nA: bInterfaceNumber=01\\n\n\n");
    add("P: " + hid + "\nE: SUBSYSTEM=hid\nE: HID_ID=0003:0000" + vendor + ":0000" + product +
        "\nE: HID_NAME=Board\nE: HID_UNIQ=\nH: report_descriptor=0600FFC0\n\n");
    add("P: " + hid +
        "/hidraw/hidraw0\nN: hidraw0\nE: SUBSYSTEM=hidraw\n"
        "E: DEVNAME=/dev/hidraw0\nL: device=../../../" +
        hid.substr(interface.size() + 1) + "\n\n");
    UMockdevIoctlBase* handler = umockdev_ioctl_base_new();
    g_signal_connect(handler, "handle-ioctl", G_CALLBACK(tellDescriptorSize), nullptr);
    GError* error = nullptr;
    umockdev_testbed_attach_ioctl(bed_.get(), "/dev/hidraw0", handler, &error);
    EXPECT_EQ(error, nullptr);
    g_object_unref(handler);
  }

  /// The device's end of /dev/hidraw0.
  [[nodiscard]] int deviceEnd() const {
    return umockdev_testbed_get_dev_fd(bed_.get(), "/dev/hidraw0");
  }

 private:
  static std::string controller() { return "/devices/pci0000:00/0000:00:14.0/usb1"; }

  static gboolean tellDescriptorSize(UMockdevIoctlBase* /*handler*/, UMockdevIoctlClient* client,
                                     gpointer /*data*/) {
    if (umockdev_ioctl_client_get_request(client) != HIDIOCGRDESCSIZE) return FALSE;
    int size = 4;
    UMockdevIoctlData* data = umockdev_ioctl_data_resolve(umockdev_ioctl_client_get_arg(client), 0,
                                                          sizeof(size), nullptr);
    umockdev_ioctl_data_update(data, 0, reinterpret_cast<guint8*>(&size), sizeof(size));
    umockdev_ioctl_data_unref(data);
    umockdev_ioctl_client_complete(client, 0, 0);
    return TRUE;
  }

  void add(const std::string& description) {
    GError* error = nullptr;
    if (umockdev_testbed_add_from_string(bed_.get(), description.c_str(), &error) == FALSE) {
      ADD_FAILURE() << error->message << " in\n" << description;
      g_error_free(error);
    }
  }

  std::unique_ptr<UMockdevTestbed, void (*)(gpointer)> bed_;
};

/// The simulated board at the device's end of a hidraw node.
class BoardOnNode {
 public:
  BoardOnNode(int node, SimulatedNfcModule module)
      : node_(node), board_(std::move(module)), thread_([this] { serve(); }) {}
  ~BoardOnNode() {
    isEnding_ = true;
    thread_.join();
  }
  BoardOnNode(const BoardOnNode&) = delete;
  BoardOnNode& operator=(const BoardOnNode&) = delete;

 private:
  void serve() {
    cr95hf::Report report{};
    std::size_t length = 0;
    while (!isEnding_) {
      ::pollfd waiting{node_, POLLIN, 0};
      constexpr int unit = 20;
      if (::poll(&waiting, 1, unit) <= 0) continue;
      const ::ssize_t count = ::read(node_, report.data() + length, report.size() - length);
      if (count <= 0) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));  // the node is not open
        continue;
      }
      length += static_cast<std::size_t>(count);
      if (length < report.size()) continue;
      length = 0;
      if (const auto answer = board_.answer(report)) {
        EXPECT_EQ(::write(node_, answer->data(), answer->size()),
                  static_cast<::ssize_t>(answer->size()));
      }
    }
  }

  int node_;
  SimulatedBoard board_;
  std::atomic<bool> isEnding_ = false;
  std::thread thread_;
};

}  // namespace tessara::testing
