#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "serve/InputWatch.h"

namespace tessara::testing {
namespace {

/// Reads what a watch reports, as text, with "." for the end.
class Reading {
 public:
  Reading(AsioEventLoop& loop, int input)
      : input_(input), watch_(std::make_unique<InputWatch>(loop, input, [this] { take(); })) {}

  [[nodiscard]] const std::string& text() const { return text_; }
  [[nodiscard]] bool isAtEnd() const { return text_.ends_with('.'); }

 private:
  void take() {
    std::array<char, 3> bytes{};
    const auto count = ::read(input_, bytes.data(), bytes.size());
    text_ += count > 0 ? std::string(bytes.data(), static_cast<std::size_t>(count)) : ".";
    if (isAtEnd()) watch_.reset();
  }

  int input_;
  std::string text_;
  std::unique_ptr<InputWatch> watch_;
};

class InputWatchTest : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_EQ(::pipe(pipe_.data()), 0); }
  void TearDown() override {
    ::close(pipe_[0]);
    if (pipe_[1] >= 0) ::close(pipe_[1]);
  }
  void send(const std::string& bytes) const {
    ASSERT_EQ(::write(pipe_[1], bytes.data(), bytes.size()), std::ssize(bytes));
  }
  void hangUp() { ::close(std::exchange(pipe_[1], -1)); }

  std::array<int, 2> pipe_{};
  AsioEventLoop loop_;
};

TEST_F(InputWatchTest, ReportsBytesAgainAndAgainUntilAllAreRead) {
  const Reading reading(loop_, pipe_[0]);
  loop_.yield();
  EXPECT_EQ(reading.text(), "");
  send("abcdefg");
  while (reading.text().size() < 7) loop_.turn();
  EXPECT_EQ(reading.text(), "abcdefg");
  send("h");
  while (reading.text().size() < 8) loop_.turn();
  EXPECT_EQ(reading.text(), "abcdefgh");
}

TEST_F(InputWatchTest, ReportsTheEnd) {
  const Reading reading(loop_, pipe_[0]);
  send("ab");
  hangUp();
  while (!reading.isAtEnd()) loop_.turn();
  EXPECT_EQ(reading.text(), "ab.");
}

TEST_F(InputWatchTest, AnInputThatIsAlwaysReadableDoesNotHoldAYieldUp) {
  const int zeros = ::open("/dev/zero", O_RDONLY | O_CLOEXEC);
  ASSERT_GE(zeros, 0);
  const Reading reading(loop_, zeros);
  loop_.yield();
  EXPECT_GT(reading.text().size(), 0U);
  ::close(zeros);
}

TEST_F(InputWatchTest, ReadsAFileOnADisk) {
  const auto path =
      std::filesystem::temp_directory_path() / ("tessara-input-" + std::to_string(::getpid()));
  std::ofstream(path) << "abcdefg";
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_GE(file, 0);
  const Reading reading(loop_, file);
  while (!reading.isAtEnd()) loop_.turn();
  EXPECT_EQ(reading.text(), "abcdefg.");
  ::close(file);
  std::filesystem::remove(path);
}

TEST_F(InputWatchTest, LeavesTheInputBlockingForOthersWhoShareIt) {
  const Reading reading(loop_, pipe_[0]);
  send("ab");
  while (reading.text().empty()) loop_.turn();
  EXPECT_EQ(::fcntl(pipe_[0], F_GETFL) & O_NONBLOCK, 0);
}

TEST_F(InputWatchTest, ADestroyedOneReportsNothing) {
  int reports = 0;
  {
    const InputWatch watch(loop_, pipe_[0], [&] { ++reports; });
    send("ab");
  }
  loop_.yield();
  EXPECT_EQ(reports, 0);
}

}  // namespace
}  // namespace tessara::testing
