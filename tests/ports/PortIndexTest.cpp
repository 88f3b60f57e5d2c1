#include <algorithm>

#include "FakeRegistry.h"

namespace tessara {
namespace {

using testing::port;

class PortIndex : public testing::PortsFixture {
 protected:
  void list(const std::vector<std::string>& ports) {
    std::vector<testing::SerialValue> values(ports.size());
    std::transform(ports.begin(), ports.end(), values.begin(),
                   [](const std::string& name) { return port("Silabser" + name, name); });
    (void)linesOf(values);
  }
};

TEST_F(PortIndex, IsTheLineOfThePort) {
  list({"COM3", "COM7", "COM9"});
  EXPECT_EQ(FindPortIndex(regEnum, 7), 1);
  EXPECT_EQ(FindPortIndex(regEnum, 9), 2);
}

TEST_F(PortIndex, WithoutAMatchIsTheFirstLine) {
  EXPECT_EQ(FindPortIndex(regEnum, 3), 0);
  list({"COM3", "COM7"});
  EXPECT_EQ(FindPortIndex(regEnum, 5), 0);
  EXPECT_EQ(FindPortIndex(regEnum, 999), 0);
}

TEST_F(PortIndex, TheLastMatchWins) {
  list({"COM3", "COM4", "com3"});
  EXPECT_EQ(FindPortIndex(regEnum, 3), 2);
}

TEST_F(PortIndex, ANumberMatchesALongerOneThatItBegins) {
  list({"COM3", "COM31"});
  EXPECT_EQ(FindPortIndex(regEnum, 3), 1);
  EXPECT_EQ(FindPortIndex(regEnum, 1), 0);
}

TEST_F(PortIndex, LeftOverLinesAreNotSearched) {
  list({"COM3", "COM4", "COM5"});
  list({"COM3"});
  EXPECT_EQ(FindPortIndex(regEnum, 5), 0);
}

TEST_F(PortIndex, ANegativeNumberMatchesNothing) {
  list({"COM3", "COM4"});
  EXPECT_EQ(FindPortIndex(regEnum, -4), 0);
}

}  // namespace
}  // namespace tessara
