#include <gmock/gmock.h>

#include "SettingsFolder.h"
#include "linux/KnownPorts.h"

namespace tessara {
namespace {

using ::testing::ElementsAre;

class SharedPorts final : public PortSource {
 public:
  [[nodiscard]] std::vector<KnownPort> ports() const override { return list; }

  std::vector<KnownPort> list;
};

const UsbIdentity usb{0x23A1, 0x010D, "H1", 0};

/// A port entered by hand at the node of a device that the system has found as well.
class SharedNode : public testing::SettingsFolder {
 protected:
  SharedNode() {
    put(node, "");
    ports.add(byHand);
    ports.add(found);
    found.list = {{3, R"(\Device\VCP0)", node, "ftdi_sio", usb}};
  }

  const std::string node = (folder() / "ttyUSB0").string();
  SharedPorts byHand;
  SharedPorts found;
  KnownPorts ports;
};

TEST_F(SharedNode, BelongsToThePortEnteredByHandWithWhatTheSystemKnows) {
  byHand.list = {{9, R"(\Device\Viator9)", node}};
  EXPECT_THAT(ports.ports(),
              ElementsAre(KnownPort{9, R"(\Device\Viator9)", node, "ftdi_sio", usb}));
}

TEST_F(SharedNode, IsFoundThroughALink) {
  const std::string link = (folder() / "by-id").string();
  std::filesystem::create_symlink(node, link);
  byHand.list = {{9, R"(\Device\Viator9)", link}};
  EXPECT_THAT(ports.ports(),
              ElementsAre(KnownPort{9, R"(\Device\Viator9)", link, "ftdi_sio", usb}));
}

TEST_F(SharedNode, MayBeEnteredUnderTwoNumbers) {
  byHand.list = {{8, R"(\Device\Silabser8)", node}, {9, R"(\Device\Viator9)", node}};
  EXPECT_THAT(ports.ports(),
              ElementsAre(KnownPort{8, R"(\Device\Silabser8)", node, "ftdi_sio", usb},
                          KnownPort{9, R"(\Device\Viator9)", node, "ftdi_sio", usb}));
}

TEST_F(SharedNode, KeepsWhatTheFirstSourceKnows) {
  const UsbIdentity other{0x09D8, 0x0420, "T1", 0};
  byHand.list = {{9, R"(\Device\USBSER009)", node, "net", other}};
  EXPECT_THAT(ports.ports(), ElementsAre(byHand.list.front()));
}

TEST_F(SharedNode, PortsWithoutANodeAreNotTheSame) {
  byHand.list = {{100, R"(\Device\Silabser100)", ""}};
  found.list.front().deviceNode = "";
  EXPECT_EQ(ports.ports().size(), 2U);
}

}  // namespace
}  // namespace tessara
