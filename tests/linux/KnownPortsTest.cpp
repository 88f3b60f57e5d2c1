#include <gmock/gmock.h>

#include "linux/KnownPorts.h"

namespace tessara {
namespace {

/// A source with fixed ports.
class FixedPorts final : public PortSource {
 public:
  void add(KnownPort port) { ports_.push_back(std::move(port)); }
  [[nodiscard]] std::vector<KnownPort> ports() const override { return ports_; }

 private:
  std::vector<KnownPort> ports_;
};

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(KnownPorts, AreNoneWithoutSources) {
  EXPECT_THAT(KnownPorts().ports(), IsEmpty());
  EXPECT_EQ(KnownPorts().deviceOf(3), std::nullopt);
}

TEST(KnownPorts, GiveOneSourceAfterTheOther) {
  FixedPorts first;
  FixedPorts second;
  KnownPorts ports;
  ports.add(first);
  ports.add(second);
  second.add({1, "\\Device\\Serial0", "/dev/ttyS0"});
  first.add({9, "\\Device\\Silabser9", "/dev/pts/5"});
  EXPECT_THAT(ports.ports(), ElementsAre(KnownPort{9, "\\Device\\Silabser9", "/dev/pts/5"},
                                         KnownPort{1, "\\Device\\Serial0", "/dev/ttyS0"}));
  EXPECT_EQ(ports.deviceOf(1), "/dev/ttyS0");
  EXPECT_EQ(ports.deviceOf(9), "/dev/pts/5");
  EXPECT_EQ(ports.deviceOf(2), std::nullopt);
}

TEST(KnownPorts, LeaveANumberToTheFirstSourceThatClaimsIt) {
  FixedPorts first;
  FixedPorts second;
  KnownPorts ports;
  ports.add(first);
  ports.add(second);
  first.add({3, "\\Device\\Silabser3", "/dev/pts/5"});
  second.add({3, "\\Device\\Silabser0", "/dev/ttyUSB0"});
  EXPECT_THAT(ports.ports(), ElementsAre(KnownPort{3, "\\Device\\Silabser3", "/dev/pts/5"}));
  EXPECT_EQ(ports.deviceOf(3), "/dev/pts/5");
}

}  // namespace
}  // namespace tessara
